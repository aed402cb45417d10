#include <functional>

#include "platform/IniFiles.h"
#include "platform/PlatformTest.h"

namespace {

using enum Win32Error;

/// What an operation says to a read-only file, to one that another program holds, to a folder, to a name that
/// is not there and to one in a folder that is not there; nothing where it does its work or makes the file.
struct RefusalCase {
  const char* name;
  std::function<SysResult(const Platform&, const std::string& path)> run;
  std::optional<Win32Error> locked, held, folder, missing, nowhere;
};

SysResult Open(const Platform& platform, const std::string& path, OpenMode mode) {
  std::unique_ptr<OpenFile> file;
  return platform.contents->Open(path, mode, ShareMode::DenyNone, file);
}

// clang-format off
const RefusalCase kCases[] = {
    {"ReadWhole", [](auto& p, auto& path) { std::string text; return p.contents->ReadWhole(path, text); },
     Success, SharingViolation, AccessDenied, FileNotFound, PathNotFound},
    {"Replace", [](auto& p, auto& path) { return p.contents->Replace(path, "x"); },
     AccessDenied, SharingViolation, AccessDenied, {}, PathNotFound},
    {"Rewrite", [](auto& p, auto& path) { std::unique_ptr<NewContents> contents; return p.contents->Rewrite(path, contents); },
     AccessDenied, SharingViolation, AccessDenied, {}, PathNotFound},
    {"Read", [](auto& p, auto& path) { return Open(p, path, OpenMode::Read); }, Success, {}, AccessDenied, FileNotFound, PathNotFound},
    {"Modify", [](auto& p, auto& path) { return Open(p, path, OpenMode::Modify); }, AccessDenied, {}, {}, FileNotFound, {}},
    {"Create", [](auto& p, auto& path) { return Open(p, path, OpenMode::Create); }, AccessDenied, {}, AccessDenied, {}, PathNotFound},
    {"Delete", [](auto& p, auto& path) { return p.entries->Delete(path); }, AccessDenied, {}, AccessDenied, FileNotFound, PathNotFound},
    {"CopyFrom", [](auto& p, auto& path) { return p.entries->Copy(path, path + "-copy", {}); },
     {}, SharingViolation, AccessDenied, FileNotFound, PathNotFound},
    {"CopyOnto", [](auto& p, auto& path) { return p.entries->Copy(path.substr(0, path.rfind("/in/")) + "/free", path, {}); },
     AccessDenied, SharingViolation, AccessDenied, {}, PathNotFound},
    {"IniRead", [](auto& p, auto& path) { std::optional<std::string> value; return p.iniFiles->Read(path, "S", "a", value); },
     Success, SharingViolation, AccessDenied, Success, Success},
    {"IniWrite", [](auto& p, auto& path) { return p.iniFiles->Write(path, "S", "a", "2"); },
     AccessDenied, SharingViolation, AccessDenied, {}, PathNotFound},
};
// clang-format on

TEST_F(PlatformTest, RefusalsLeaveEverythingAsItWas) {
  for (const char* name : {"in/locked", "in/held", "free"}) folder.Write(name, "[S]\na=1\n");
  folder.MakeFolder("in/folder");
  SetMode(Path("in/locked"), 0444);
  {
    const ExclusiveOpen other(Path("in/held"));
    for (const RefusalCase& c : kCases) {
      const std::pair<const char*, std::optional<Win32Error>> cells[] = {{"in/locked", c.locked},
                                                                         {"in/held", c.held},
                                                                         {"in/folder", c.folder},
                                                                         {"in/missing", c.missing},
                                                                         {"in/no/x", c.nowhere}};
      for (const auto& [name, code] : cells) {
        if (!code) continue;
        const SysResult result = c.run(owner->Get(), Path(name));
        EXPECT_EQ(result.code, *code) << c.name << ' ' << name;
        EXPECT_EQ(result.ok, *code == Success) << c.name << ' ' << name;
      }
    }
  }
  EXPECT_EQ(folder.Names("in"), (StringList{"folder", "held", "locked"}));
  EXPECT_EQ(folder.Read("in/locked") + folder.Read("in/held"), "[S]\na=1\n[S]\na=1\n");
  EXPECT_TRUE(data.Replace(Path("in/held"), "free again"));
}

}  // namespace
