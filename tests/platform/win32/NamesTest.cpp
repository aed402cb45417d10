#include <string>

#include "gmock/gmock.h"

#include "platform/Contents.h"
#include "platform/CreatePlatform.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "platform/Folders.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Text.h"
#include "support/TempFolder.h"
#include "support/WineLimits.h"

using testing::ElementsAre;

namespace {

struct Win32Names : testing::Test {
  StringList Found(const std::string& spec) {
    SysResult result;
    StringList names;
    const auto search = platform.finder->Open(spec, FileAttribute::ReadOnly, result);
    for (FoundEntry entry; search->Next(entry);) names.push_back(entry.name);
    return names;
  }

  const std::unique_ptr<PlatformOwner> owner = CreatePlatform([](char) { return std::nullopt; });
  const Platform& platform = owner->Get();
  const TempFolder folder;
};

struct TextCase {
  const char* bytes;
  std::wstring wide;
};

TEST(Win32Text, GoesBothWays) {
  for (const auto& [bytes, wide] : {
           TextCase{"", L""},
           {"a\xC3\xA4\xE4\xB8\xAD", L"a\u00E4\u4E2D"},
           {"\xF0\x9F\x98\x80", L"\xD83D\xDE00"},
           {"x\xED\xA0\xBDy", L"x\xD83Dy"},                // half a pair, as names may hold
           {"\xED\xB8\x80\xED\xA0\xBD", L"\xDE00\xD83D"},  // the halves the wrong way round
           {"\xED\xA0\xBD\xF0\x9F\x98\x80", L"\xD83D\xD83D\xDE00"},
       }) {
    EXPECT_EQ(ToWide(bytes), wide);
    EXPECT_EQ(FromWide(wide), bytes);
  }
}

TEST(Win32Text, RefusesBytesThatAreNoText) {
  for (const char* bytes : {"\xFF", "a\xC3", "\xC0\xAF", "\xED\xA0", "\xF4\x90\x80\x80",
                            "\xED\xA0\xBD\xED\xB8\x80"}) {  // a pair in its second spelling
    EXPECT_EQ(ToWide(bytes), std::nullopt) << testing::PrintToString(std::string(bytes));
  }
  EXPECT_EQ(ToWideShown("a\xFFz"), L"a\uFFFDz");
}

TEST(Win32Path, LongPathsTakeTheLongForm) {
  const std::string name(250, 'n');
  const std::wstring wide(250, L'n');
  std::wstring native;
  ASSERT_TRUE(NativePath("C:/a/../" + name, native));
  EXPECT_EQ(native, L"\\\\?\\C:\\" + wide);
  EXPECT_EQ(ShownPath(native), "C:\\" + name);
  ASSERT_TRUE(NativePath("//server/share/" + name, native));
  EXPECT_EQ(native, L"\\\\?\\UNC\\server\\share\\" + wide);
  EXPECT_EQ(ShownPath(native), "\\\\server\\share\\" + name);
  ASSERT_TRUE(NativePath("C:\\short", native));
  EXPECT_EQ(native, L"C:\\short");
}

TEST_F(Win32Names, BytesThatAreNoTextAreNoOtherFile) {
  folder.Write("\xEF\xBF\xBD.txt", "kept");  // U+FFFD, what a lossy conversion makes of them
  const std::string path = folder.Path("\xFF.txt");
  std::string contents;
  EXPECT_EQ(platform.contents->ReadWhole(path, contents).code, Win32Error::InvalidName);
  EXPECT_EQ(platform.entries->Delete(path).code, Win32Error::InvalidName);
  EXPECT_EQ(platform.entries->Delete(folder.Path(std::string("\xEF\xBF\xBD.txt\0x", 9))).code,
            Win32Error::InvalidName);
  EXPECT_FALSE(platform.entries->EntryExists(path));
  EXPECT_THAT(folder.Names(), ElementsAre("\xEF\xBF\xBD.txt"));
}

TEST_F(Win32Names, HalfAPairIsAName) {
  if (WineLimits::NoHalfPairsInNames()) GTEST_SKIP() << "Wine keeps no such names";
  const std::string name = "half\xED\xA0\xBD.txt";
  ASSERT_TRUE(platform.contents->Replace(folder.Path(name), "x"));
  EXPECT_THAT(Found(folder.Path("*.txt")), ElementsAre(name));
  EXPECT_TRUE(platform.entries->Delete(folder.Path(name)));
  EXPECT_THAT(Found(folder.Path("*.txt")), ElementsAre());
}

TEST_F(Win32Names, EveryOperationTakesLongPaths) {
  std::string deep = folder.Path();
  for (int i = 0; i < 4; ++i) deep += "\\" + std::string(100, static_cast<char>('a' + i));
  Entries& entries = *platform.entries;
  Folders& folders = *platform.folders;
  Contents& data = *platform.contents;
  const std::string file = deep + "\\file.txt";
  uint32_t attributes = 0;
  std::string contents;
  ASSERT_TRUE(folders.CreateWithParents(deep));
  EXPECT_TRUE(data.Replace(file, "one") && data.Replace(file, "two"));
  EXPECT_TRUE(data.ReadWhole(file, contents));
  EXPECT_EQ(contents, "two");
  EXPECT_TRUE(entries.GetAttributes(file, attributes) && entries.SetAttributes(file, FileAttribute::Normal));
  EXPECT_TRUE(entries.FileExists(file) && folders.Exists(deep) && entries.EntryExists(file));
  EXPECT_THAT(Found(deep + "\\*"), ElementsAre("file.txt"));
  EXPECT_THAT(Found(deep + "\\FILE.TXT"), ElementsAre("file.txt"));
  EXPECT_TRUE(entries.Delete(file));
  while (deep != folder.Path()) {
    ASSERT_TRUE(folders.Remove(deep)) << deep.size();
    deep.resize(deep.rfind('\\'));
  }
}

TEST_F(Win32Names, SignsThatTheFileSystemMatchesByAreNoNames) {
  folder.Write("a.txt");
  for (const char* spec : {"<.txt", "a\".txt", ">.txt", "*.<", "?>txt"}) {
    EXPECT_THAT(Found(folder.Path(spec)), ElementsAre()) << spec;
    EXPECT_FALSE(platform.entries->EntryExists(folder.Path(spec))) << spec;
  }
}

}  // namespace
