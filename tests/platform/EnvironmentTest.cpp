#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/PlatformTest.h"

namespace {

using EnvironmentTest = PlatformTest;

TEST_F(EnvironmentTest, FullPathIsAbsoluteAndPlain) {
  ASSERT_TRUE(environment.SetCurrentFolder(folder.Path()));
  const std::string here = environment.CurrentFolder();
  const std::pair<std::string, std::string> cases[] = {
      {"a\\b", here + "/a/b"},
      {".\\a\\..\\b\\", here + "/b"},
      {"", here},
      {"/x//y/./z/", "/x/y/z"},
      {"\\x\\..\\..\\..", "/"},
      {"Z:\\x", "/x"},
      {"q:a\\b", here + "/a/b"},
      {"Q:\\..", here.substr(0, here.rfind('/'))},
      {"W:\\x", "W:\\x"},
  };
  for (const auto& [path, wanted] : cases) EXPECT_EQ(environment.FullPath(path), wanted) << path;
  ASSERT_TRUE(environment.SetCurrentFolder("/"));
}

TEST_F(EnvironmentTest, SetCurrentFolder) {
  folder.MakeFolder("Sub");
  folder.Write("file");
  ASSERT_TRUE(environment.SetCurrentFolder(Path("sUB")));
  EXPECT_EQ(environment.CurrentFolder(), Path("Sub"));
  EXPECT_TRUE(environment.SetCurrentFolder(".."));
  EXPECT_EQ(environment.CurrentFolder(), folder.Path());
  EXPECT_FALSE(environment.SetCurrentFolder("file"));
  EXPECT_EQ(environment.SetCurrentFolder("missing").code, Win32Error::PathNotFound);
  EXPECT_EQ(environment.CurrentFolder(), folder.Path());
  ASSERT_TRUE(environment.SetCurrentFolder("/"));
}

TEST_F(EnvironmentTest, Variables) {
  SetVariable("Vek_Test_Name", "value");
  EXPECT_EQ(environment.Variable("Vek_Test_Name"), "value");
  EXPECT_EQ(environment.Variable("VEK_TEST_NAME"), "value");
  SetVariable("VEK_TEST_NAME", "exact");
  EXPECT_EQ(environment.Variable("VEK_TEST_NAME"), "exact");
  SetVariable("Vek_Test_Name", std::nullopt);
  SetVariable("VEK_TEST_NAME", std::nullopt);
  EXPECT_EQ(environment.Variable("Vek_Test_Name"), std::nullopt);
}

TEST_F(EnvironmentTest, FoldersFollowTheEnvironment) {
  const auto data = environment.Variable("XDG_DATA_HOME"), temp = environment.Variable("TMPDIR");
  SetVariable("XDG_DATA_HOME", "/data/");
  SetVariable("TMPDIR", folder.Path() + "/");
  EXPECT_EQ(environment.DataFolder(), "/data/vekrun");
  EXPECT_EQ(environment.TempFolder(), folder.Path());
  SetVariable("XDG_DATA_HOME", "relative");
  SetVariable("TMPDIR", std::nullopt);
  EXPECT_TRUE(environment.DataFolder().ends_with("/.local/share/vekrun"));
  EXPECT_EQ(environment.TempFolder(), "/tmp");
  SetVariable("XDG_DATA_HOME", data);
  SetVariable("TMPDIR", temp);
  EXPECT_EQ(environment.ProgramFolder(), VEK_BIN_DIR);
}

TEST_F(EnvironmentTest, ClocksGoOn) {
  Clock& clock = owner->Get().clock;
  const double before = clock.Seconds();
  const TDateTime now = clock.LocalNow();
  EXPECT_GE(clock.Seconds(), before);
  EXPECT_GE(clock.LocalNow().days, now.days);
  EXPECT_GT(ToIso8601(now), "2024-01-01");
}

TEST_F(EnvironmentTest, ModulesLoadOrSayWhyNot) {
  Modules& modules = owner->Get().modules;
  std::string error;
  folder.Write(modules.FileName("broken"), "not a module");
  EXPECT_EQ(modules.Load(Path(modules.FileName("broken")), error), nullptr);
  EXPECT_NE(error.find("broken"), std::string::npos) << error;
  EXPECT_EQ(modules.Load(Path(modules.FileName("missing")), error), nullptr);
  EXPECT_EQ(error, "The system cannot find the file specified.");
  const auto module = modules.Load(VEK_BIN_DIR "/" + modules.FileName("LIBVEK40COREAPI"), error);
  ASSERT_NE(module, nullptr) << error;
  EXPECT_EQ(module->Function("NoSuchFunction"), nullptr);
}

}  // namespace
