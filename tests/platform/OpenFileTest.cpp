#include "platform/PlatformTest.h"

namespace {

using enum OpenMode;
using enum ShareMode;

struct OpenFileTest : PlatformTest {
  Win32Error Open(std::string_view name, OpenMode mode = Read, ShareMode share = DenyNone) {
    return data.Open(Path(name), mode, share, file).code;
  }
  std::string ReadOn(size_t most) {
    std::string text(most, '\0');
    size_t count = 0;
    EXPECT_TRUE(file->Read(text, count));
    return text.substr(0, count);
  }

  std::unique_ptr<OpenFile> file;
};

TEST_F(OpenFileTest, ReadsAndWritesWhereItStands) {
  ASSERT_EQ(Open("new.txt", Create), Win32Error::Success);
  EXPECT_TRUE(file->Write("0123456789"));
  EXPECT_TRUE(file->Seek(3));
  EXPECT_EQ(ReadOn(4), "3456");
  EXPECT_TRUE(file->Write("x"));
  EXPECT_EQ(ReadOn(100), "89");
  EXPECT_EQ(ReadOn(100), "");
  EXPECT_TRUE(file->SetSize(5));
  uint64_t size = 0;
  EXPECT_TRUE(file->GetSize(size));
  EXPECT_EQ(size, 5u);
  file.reset();
  EXPECT_EQ(folder.Read("new.txt"), "01234");

  ASSERT_EQ(Open("NEW.TXT", Modify), Win32Error::Success);
  EXPECT_TRUE(file->Write("AB"));
  file.reset();
  EXPECT_EQ(folder.Read("new.txt"), "AB234");
  ASSERT_EQ(Open("New.txt", Create), Win32Error::Success);
  EXPECT_EQ(folder.Names(), StringList{"new.txt"});
  EXPECT_EQ(folder.Read("new.txt"), "");
}

TEST_F(OpenFileTest, TakesOverWhatComesNextInAnotherFile) {
  folder.Write("source", "0123456789");
  std::unique_ptr<OpenFile> source;
  ASSERT_TRUE(data.Open(Path("source"), Read, DenyNone, source));
  ASSERT_EQ(Open("target", Create), Win32Error::Success);
  EXPECT_TRUE(source->Seek(3));
  EXPECT_TRUE(file->Write("x"));
  for (const uint64_t wanted : {4u, 3u, 0u}) {
    uint64_t count = 100;
    EXPECT_TRUE(file->CopyFrom(*source, wanted == 4 ? 4 : 100, count));
    EXPECT_EQ(count, wanted);
  }
  EXPECT_TRUE(file->Write("y"));
  file.reset();
  EXPECT_EQ(folder.Read("target"), "x3456789y");
}

TEST_F(OpenFileTest, OpensStandAgainstEachOther) {
  folder.Write("file", "text");
  const struct {
    OpenMode mode;
    ShareMode share;
  } kOpens[] = {{Read, DenyNone},   {Read, DenyWrite},   {Read, DenyAll},
                {Modify, DenyNone}, {Modify, DenyWrite}, {Modify, DenyAll}};
  const auto allows = [](const auto& held, const auto& wanted) {
    return held.share == DenyNone || (held.share == DenyWrite && wanted.mode == Read);
  };
  for (const auto& first : kOpens) {
    for (const auto& second : kOpens) {
      ASSERT_EQ(Open("file", first.mode, first.share), Win32Error::Success);
      std::unique_ptr<OpenFile> other;
      EXPECT_EQ(data.Open(Path("file"), second.mode, second.share, other).ok,
                allows(first, second) && allows(second, first))
          << static_cast<int>(first.mode) << static_cast<int>(first.share) << static_cast<int>(second.mode)
          << static_cast<int>(second.share);
      file.reset();
    }
  }
  EXPECT_EQ(folder.Read("file"), "text");
}

TEST_F(OpenFileTest, LastWritesAreLocalTimes) {
  folder.Write("file", "");
  ASSERT_EQ(Open("file", Modify), Win32Error::Success);
  for (const char* text : {"2007-03-05T10:00:00", "2024-07-01T23:59:58", "1999-12-31T00:00:01"}) {
    TDateTime local;
    EXPECT_TRUE(file->SetLastWrite(*ParseIso8601(text)));
    EXPECT_TRUE(file->GetLastWrite(local));
    EXPECT_EQ(ToIso8601(local), text);
  }
}

}  // namespace
