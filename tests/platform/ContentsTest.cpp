#include <algorithm>
#include <stdexcept>
#include <thread>
#include <vector>

#include "platform/PlatformTest.h"

namespace {

using Names = std::vector<std::string>;

TEST_F(PlatformTest, ReadWholeGivesEveryByte) {
  const std::string big(300000, 'x');
  for (const std::string& text : {std::string(), std::string("a\r\n\0\xFF", 5), big}) {
    folder.Write("File", text);
    std::string contents = "old";
    ASSERT_TRUE(data.ReadWhole(Path("FILE"), contents));
    EXPECT_EQ(contents, text);
  }
}

TEST_F(PlatformTest, ReplaceWritesNewAndOldFiles) {
  EXPECT_TRUE(data.Replace(Path("New.txt"), "one"));
  EXPECT_TRUE(data.Replace(Path("NEW.TXT"), "two"));
  EXPECT_TRUE(data.Replace(Path("new.txt"), ""));
  EXPECT_TRUE(data.Replace(Path("new.txt"), "three"));
  EXPECT_EQ(folder.Names(), Names{"New.txt"});
  EXPECT_EQ(folder.Read("New.txt"), "three");
}

TEST_F(PlatformTest, ReplaceKeepsAttributes) {
  using namespace FileAttribute;  // NOLINT(google-build-using-namespace): attributes read as sums of bits
  if (!StoresAttributes(folder.Path())) GTEST_SKIP() << "this file system stores no attributes";
  folder.Write("file", "old");
  ASSERT_TRUE(entries.SetAttributes(Path("file"), Hidden | System));
  EXPECT_TRUE(data.Replace(Path("file"), "new"));
  EXPECT_EQ(AttributesOf("file"), Hidden | System);
  EXPECT_EQ(folder.Read("file"), "new");
}

TEST_F(PlatformTest, RewrittenContentsAreThereWhenTheyAreCommitted) {
  folder.Write("Old", "old");
  for (const char* name : {"old", "new"}) {
    std::unique_ptr<NewContents> contents;
    ASSERT_TRUE(data.Rewrite(Path(name), contents));
    EXPECT_TRUE(contents->File().Write("one"));
    contents.reset();
    EXPECT_EQ(folder.Names(), Names{"Old"}) << name;
    EXPECT_EQ(folder.Read("Old"), "old");
  }
  for (const char* name : {"old", "new"}) {
    std::unique_ptr<NewContents> contents;
    ASSERT_TRUE(data.Rewrite(Path(name), contents));
    EXPECT_TRUE(contents->File().Write("one"));
    EXPECT_TRUE(contents->File().Write("two"));
    EXPECT_TRUE(contents->Commit());
  }
  EXPECT_EQ(folder.Names(), (Names{"Old", "new"}));
  EXPECT_EQ(folder.Read("Old"), "onetwo");
  EXPECT_EQ(folder.Read("new"), "onetwo");
}

TEST_F(PlatformTest, ChangesOfSeveralProgramsAreAllKept) {
  constexpr size_t kWriters = 4, kChanges = 50;
  folder.Write("file", "");
  folder.MakeFolder("links");
  if (!WineLimits::NoLinks()) MakeLink(Path("file"), Path("links/link"));
  const std::string paths[] = {Path("file"), Path(WineLimits::NoLinks() ? "FILE" : "links/link")};
  std::vector<std::thread> writers;
  for (size_t writer = 0; writer < kWriters; ++writer) {
    writers.emplace_back([&, writer] {
      const auto own = CreatePlatform({});
      for (size_t i = 0; i < kChanges; ++i) {
        EXPECT_TRUE(
            own->Get().contents->Change(paths[writer % 2], [&](const std::string& old, NewText& changed) {
              changed.Append(old + static_cast<char>('a' + writer));
              return true;
            }));
      }
    });
  }
  for (std::thread& writer : writers) writer.join();
  std::string contents = folder.Read("file");
  std::ranges::sort(contents);
  std::string wanted;
  for (size_t writer = 0; writer < kWriters; ++writer)
    wanted.append(kChanges, static_cast<char>('a' + writer));
  EXPECT_EQ(contents, wanted);
}

TEST_F(PlatformTest, AnEditThatDeclinesOrRaisesLeavesTheFile) {
  folder.Write("file", "old");
  const auto declines = [](const std::string&, NewText& changed) {
    changed.Append("more");
    return false;
  };
  EXPECT_TRUE(data.Change(Path("file"), declines));
  EXPECT_TRUE(data.Change(Path("missing"), declines));
  const auto raises = [](const std::string&, NewText&) -> bool { throw std::runtime_error("raised"); };
  EXPECT_THROW(data.Change(Path("file"), raises), std::runtime_error);
  EXPECT_TRUE(data.Replace(Path("other"), "the turn is free again"));
  EXPECT_EQ(folder.Read("file"), "old");
  EXPECT_EQ(folder.Names(), (Names{"file", "other"}));
}

}  // namespace
