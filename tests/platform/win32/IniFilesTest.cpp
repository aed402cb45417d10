#include <windows.h>

#include "platform/IniFiles.h"
#include "platform/PlatformTest.h"
#include "platform/win32/system/Win32Text.h"

namespace {

class Win32IniFilesTest : public PlatformTest {
 protected:
  /// All that can be read of a file.
  std::vector<std::string> Everything(std::string_view name) {
    std::vector<std::string> lines;
    StringList sections;
    EXPECT_TRUE(ini.ReadSections(Path(name), sections));
    for (const std::string& section : sections) {
      lines.push_back('[' + section + ']');
      std::vector<IniEntry> entries;
      EXPECT_TRUE(ini.ReadEntries(Path(name), section, entries));
      for (const IniEntry& entry : entries) lines.push_back(entry.name + '=' + entry.value);
    }
    return lines;
  }

  IniFiles& ini = *owner->Get().iniFiles;
};

// The layout is not compared: Wine writes the whole file anew. Windows changes the one line, as we do.
TEST_F(Win32IniFilesTest, WritesWhatTheSystemsFunctionWrites) {
  const struct {
    const char *before, *section, *key, *value;  // no key: the section is deleted; no value: the key
  } cases[] = {
      {"", "S", "a", "1"},
      {"[S]\n\n;c\n a = 1 \nbare\n\n[T]\nb=2", "S", "A", "9"},
      {"[S]\n\n;c\n a = 1 \nbare\n\n[T]\nb=2", "S", "n", "9"},
      {"[S]\n\n;c\n a = 1 \nbare\n\n[T]\nb=2", "S", "bare", "9"},
      {"[S]\n\n;c\n a = 1 \nbare\n\n[T]\nb=2", "T", "n", "9"},
      {"[S]\n\n;c\n a = 1 \nbare\n\n[T]\nb=2", " U ", " n ", "9"},
      {"[S]\na=1\na=2\n[S]\na=3\n", "S", "a", "9"},
      {"[S]\na=1\n", "S", "a", " \"x\" "},
      {"[S]\na=1\n", "S", "a", ""},
      {"[S]\na=1\n", "S", "b=c", "d"},
      {"[S]\na=1\n", "S", "a", "x\ny=2"},
      {"[S]\na=1\n", "S", "a", "\xC3\xA4\xF0\x9F\x98\x80"},
      {"[S]\na=1\na=2\n;c\n\n[T]\nb=2\n[S]\na=3\n", "S", "a", nullptr},
      {"[S]\na=1\na=2\n;c\n\n[T]\nb=2\n[S]\na=3\n", "S", nullptr, nullptr},
      {"[S]\na=1\n", "none", nullptr, nullptr},
  };
  const auto wide = [](const char* text) { return ToWide(text ? text : "").value(); };
  for (const auto& change : cases) {
    folder.Write("system.ini", change.before);
    folder.Write("ours.ini", change.before);
    EXPECT_TRUE(WritePrivateProfileStringW(
        wide(change.section).c_str(), change.key ? wide(change.key).c_str() : nullptr,
        change.value ? wide(change.value).c_str() : nullptr, wide(Path("system.ini").c_str()).c_str()));
    EXPECT_TRUE(change.value ? ini.Write(Path("ours.ini"), change.section, change.key, change.value)
                : change.key ? ini.Delete(Path("ours.ini"), change.section, change.key)
                             : ini.DeleteSection(Path("ours.ini"), change.section));
    EXPECT_EQ(Everything("ours.ini"), Everything("system.ini")) << change.before << change.section;
  }
}

TEST_F(Win32IniFilesTest, TheProgramsCodePageIsUtf8) { EXPECT_EQ(GetACP(), UINT{CP_UTF8}); }

}  // namespace
