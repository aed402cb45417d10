#include "gtest/gtest.h"

#include "host/services/OptionStore.h"
#include "platform/CreatePlatform.h"
#include "platform/Environment.h"
#include "support/TempFolder.h"

namespace {

/// The real environment of a program that lies elsewhere, with its data beside it.
class MovedEnvironment final : public Environment {
 public:
  MovedEnvironment(Environment& real, std::string folder) : real_(real), folder_(std::move(folder)) {}
  std::string ProgramFolder() override { return folder_; }
  std::string DataFolder() override { return folder_; }

  std::optional<std::string> Variable(std::string_view name) override { return real_.Variable(name); }
  SysResult Export(std::string_view name, const std::optional<std::string>& text) override {
    return real_.Export(name, text);
  }
  std::string CurrentFolder() override { return real_.CurrentFolder(); }
  SysResult SetCurrentFolder(std::string_view path) override { return real_.SetCurrentFolder(path); }
  std::string FullPath(std::string_view path) override { return real_.FullPath(path); }
  char PathDelimiter(std::string_view path) override { return real_.PathDelimiter(path); }
  std::string NativePath(std::string_view path) override { return real_.NativePath(path); }
  uint32_t RandomNumber() override { return real_.RandomNumber(); }
  std::string TempFolder() override { return real_.TempFolder(); }
  std::string SystemFolder() override { return real_.SystemFolder(); }
  std::string HomeFolder() override { return real_.HomeFolder(); }
  StringList ReservedFolders() override { return real_.ReservedFolders(); }
  std::string CommandInterpreter() override { return real_.CommandInterpreter(); }

 private:
  Environment& real_;
  const std::string folder_;
};

struct OptionStoreTest : testing::Test {
  OptionStoreTest() {
    platform.environment = &environment;
    store.Load(platform);
  }
  std::string Full(const std::string& name) { return environment.FullPath(folder.Path(name)); }

  TempFolder folder;
  std::unique_ptr<PlatformOwner> owner = CreatePlatform([](char) { return std::nullopt; });
  MovedEnvironment environment{*owner->Get().environment, folder.Path()};
  Platform platform = owner->Get();
  OptionStore store;
};

TEST_F(OptionStoreTest, ToolsBesideTheProgramStandInForWhatIsNotSet) {
  EXPECT_EQ(store.ReadOption("Robocopy", "Location"), "");
  folder.Write("tools/robocopy.exe");
  EXPECT_EQ(store.ReadOption("robocopy", "LOCATION"), Full("tools/robocopy.exe"));
  EXPECT_EQ(store.ReadOption("System", "Directory"), "") << "there is no xcopy";
  folder.Write("tools/xcopy.exe");
  EXPECT_EQ(store.ReadOption("System", "Directory"), Full("tools"));
  store.Override("System", "Directory", "");
  EXPECT_EQ(store.ReadOption("System", "Directory"), "");
}

/// Options that keep what they are given to read.
class TSeenOptions final : public TVekOptionsObject {
 public:
  explicit TSeenOptions(const Platform& /*platform*/) {}
  static constexpr std::string_view kClassName = "TSeenOptions", kCategory = "Seen", kName = "Seen options",
                                    kOptionKey = "Robocopy";
  std::vector<const PropertyRow*> PropertyRows() const override { return {}; }
  void LoadOptions(const IVekOptionsReader& reader) override {
    read = reader.ReadString("Location");
    suggested = reader.SuggestedString("Location");
  }
  std::string read, suggested;
};

TEST_F(OptionStoreTest, AnObjectIsLoadedWhenItIsFirstAskedFor) {
  const OptionsClass options = OptionsClassOf<TSeenOptions>(nullptr);
  store.RegisterOptionsPage(options, "BITMAP");
  folder.Write("tools/robocopy.exe");
  EXPECT_EQ(store.FindOptions("Seen", "Other"), nullptr);
  const auto* seen = dynamic_cast<TSeenOptions*>(store.FindOptions("Seen", "Seen options"));
  ASSERT_NE(seen, nullptr);
  EXPECT_EQ(seen->read, "");
  EXPECT_EQ(seen->suggested, Full("tools/robocopy.exe"));
  EXPECT_EQ(store.FindOptions("Seen", "Seen options"), seen);

  store.Unregister();
  store.Override("Robocopy", "location", "");  // given as empty it is empty
  store.RegisterOptionsPage(options, "BITMAP");
  EXPECT_EQ(dynamic_cast<TSeenOptions&>(*store.FindOptions("Seen", "Seen options")).suggested, "");
  store.Unregister();
}

}  // namespace
