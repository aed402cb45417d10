#include "gmock/gmock.h"

#include "coreapi/Vekutils.h"
#include "platform/CreatePlatform.h"
#include "platform/Environment.h"
#include "support/NullHost.h"
#include "support/SampleAction.h"
#include "support/ScriptedServices.h"
#include "support/TempFolder.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A build with or without a user, which counts what runs on the user-interface thread.
struct BuildHost final : NullHost {
  bool unattended = false;
  int synchronized = 0;
  bool IsUnattended() override { return unattended; }
  void Synchronize(const std::function<void()>& method) override {
    ++synchronized;
    method();
  }
};

TEST(Browse, ACancelledChooserLeavesTheText) {
  ScriptedServices services;
  std::string name = "old";
  EXPECT_FALSE(VekBrowseForFile("Title", name, "All|*.*", ".txt"));
  EXPECT_THAT(services.asked, ElementsAre("Title", "old", "All|*.*", ".txt"));
  EXPECT_FALSE(VekBrowseForDirectory("Folder", name));
  EXPECT_THAT(services.asked, ElementsAre("Folder", "old"));
  EXPECT_EQ(name, "old");
  services.answer = "new";
  EXPECT_TRUE(VekBrowseForFile("Title", name, "All|*.*"));
  EXPECT_EQ(name, "new");
}

TEST(Browse, ARunningActionAsksOnTheUserInterfaceThread) {
  ScriptedServices services;
  services.answer = "new";
  BuildHost host;
  TSampleAction action(host);
  std::string file, folder;
  EXPECT_TRUE(VekBrowseForFileRuntime(action, "Title", file, "All|*.*", ".txt"));
  EXPECT_THAT(services.asked, ElementsAre("Title", "", "All|*.*", ".txt"));
  EXPECT_TRUE(VekBrowseForDirectoryRuntime(action, "Folder", folder));
  EXPECT_EQ(file + folder, "newnew");
  EXPECT_EQ(host.synchronized, 2);
}

TEST(Browse, AnUnattendedBuildShowsNothing) {
  ScriptedServices services;
  services.answer = "new";
  BuildHost host;
  host.unattended = true;
  TSampleAction action(host);
  std::string name = "old";
  EXPECT_FALSE(VekBrowseForFileRuntime(action, "Title", name, "All|*.*"));
  EXPECT_FALSE(VekBrowseForDirectoryRuntime(action, "Title", name));
  EXPECT_EQ(name, "old");
  EXPECT_THAT(services.asked, IsEmpty());
  EXPECT_EQ(host.synchronized, 0);
}

TEST(Browse, WithoutAHostThereIsNobodyToAsk) {
  std::string name;
  EXPECT_THROW(VekBrowseForDirectory("Title", name), EVekError);
}

TEST(DoubleQuoteString, QuotesForACommandLine) {
  const struct {
    const char* text;
    bool onlyOnce;
    const char* result;
  } cases[] = {
      {"a", true, R"("a")"},
      {"a b", false, R"("a b")"},
      {"", true, R"("")"},
      {R"("a b")", true, R"("a b")"},
      {R"("a b")", false, R"(""a b"")"},
      {R"(")", true, R"(""")"},
      {R"(C:\a b\)", true, R"("C:\a b\\")"},
      {R"(C:\a\b)", true, R"("C:\a\b")"},
      {R"(\\)", true, R"("\\\\")"},
  };
  for (const auto& wanted : cases) EXPECT_EQ(DoubleQuoteString(wanted.text, wanted.onlyOnce), wanted.result);
}

TEST(GetParentDir, IsTheFolderAround) {
  for (const auto& [path, parent] :
       {std::pair{"C:\\a\\b", "C:\\a"}, std::pair{"C:\\a\\b\\", "C:\\a"}, std::pair{"C:\\a", "C:\\"},
        std::pair{"/a/b", "/a"}, std::pair{"a", ""}}) {
    EXPECT_EQ(GetParentDir(path), parent);
  }
}

struct MachineFolders : testing::Test {
  std::unique_ptr<PlatformOwner> owner = CreatePlatform([](char) { return std::nullopt; });
  const Platform& platform = owner->Get();
  ScriptedServices services;
};

TEST_F(MachineFolders, TheOptionStandsForTheSystemDirectory) {
  EXPECT_EQ(GetSysDirectory(platform), platform.environment->SystemFolder());
  services.options[{"System", "Directory"}] = "Q:\\sys";
  EXPECT_EQ(GetSysDirectory(platform), "Q:\\sys");
}

TEST_F(MachineFolders, TemporaryFileNamesAreNewAndFull) {
  const TempFolder folder;
  const std::string inFolder = GetTemporaryFileName(platform, "xc", folder.Path());
  EXPECT_EQ(inFolder.substr(0, inFolder.size() - 12), platform.environment->FullPath(folder.Path("xc")));
  EXPECT_TRUE(inFolder.ends_with(".tmp"));
  EXPECT_THAT(folder.Names(), IsEmpty());
  const std::string first = GetTemporaryFileName(platform, "xc");
  EXPECT_TRUE(first.starts_with(platform.environment->TempFolder())) << first;
  EXPECT_NE(first, GetTemporaryFileName(platform, "xc"));
}

}  // namespace
