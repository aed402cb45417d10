#include "base/WindowsPath.h"
#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/PlatformTest.h"

namespace {

using EnvironmentTest = PlatformTest;

TEST_F(EnvironmentTest, SetCurrentFolder) {
  folder.MakeFolder("Sub");
  folder.Write("file");
  ASSERT_TRUE(environment.SetCurrentFolder(Path("sUB")));
  EXPECT_TRUE(SameText(NamePart(environment.CurrentFolder()), "Sub"));
  EXPECT_TRUE(environment.SetCurrentFolder(".."));
  EXPECT_EQ(environment.CurrentFolder(), folder.Path());
  EXPECT_FALSE(environment.SetCurrentFolder("file"));
  EXPECT_FALSE(environment.SetCurrentFolder("missing"));
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

TEST_F(EnvironmentTest, WhatIsExportedIsForOtherPrograms) {
  const std::string home = environment.HomeFolder(), data = environment.DataFolder();
  for (const char* name : {"HOME", "USERPROFILE", "XDG_DATA_HOME", "LOCALAPPDATA"}) {
    const auto before = environment.Variable(name);
    EXPECT_TRUE(environment.Export(name, folder.Path()));
    EXPECT_EQ(environment.Variable(name), folder.Path());
    EXPECT_EQ(environment.HomeFolder(), home);
    EXPECT_EQ(environment.DataFolder(), data);
    EXPECT_TRUE(environment.Export(name, before));
    EXPECT_EQ(environment.Variable(name), before);
  }
  EXPECT_FALSE(environment.Export("VEK_TEST", std::string("a\0b", 3)));
}

TEST_F(EnvironmentTest, ClocksGoOn) {
  Clock& clock = *owner->Get().clock;
  const double before = clock.Seconds();
  const TDateTime now = clock.LocalNow();
  EXPECT_GE(clock.Seconds(), before);
  EXPECT_GE(clock.LocalNow().days, now.days);
  EXPECT_GT(ToIso8601(now), "2024-01-01");
}

TEST_F(EnvironmentTest, ModulesLoadOrSayWhyNot) {
  Modules& modules = *owner->Get().modules;
  std::string error;
  folder.Write(modules.FileName("broken"), "not a module");
  EXPECT_EQ(modules.Load(Path(modules.FileName("broken")), error), nullptr);
  EXPECT_NE(error.find("broken"), std::string::npos) << error;
  error.clear();
  EXPECT_EQ(modules.Load(Path(modules.FileName("missing")), error), nullptr);
  EXPECT_NE(error, "");
  const auto module = modules.Load(std::string(VEK_BIN_DIR "/") + modules.FileName("ThrowingModule"), error);
  ASSERT_NE(module, nullptr) << error;
  EXPECT_EQ(module->Function("NoSuchFunction"), nullptr);
}

}  // namespace
