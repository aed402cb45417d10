#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "platform/ComClasses.h"
#include "process/VekIFCOMClassRegistered.h"
#include "support/ProjectFixture.h"

using testing::ElementsAre;

namespace {

constexpr const char* kKnown = "{00000000-0000-0000-0000-00000000000A}";

/// One class, which goes by one name.
class OneClass final : public ComClasses {
 public:
  bool CanCreate(std::string_view classId) override { return classId == kKnown; }
  std::optional<std::string> ClassIdOf(std::string_view progId) override {
    if (progId == "Gone.Class") return "{00000000-0000-0000-0000-00000000000B}";
    return progId == "Known.Class" ? std::optional<std::string>(kKnown) : std::nullopt;
  }
};

struct IfComClass : testing::Test {
  OneClass classes;
  ProjectFixture fixture{[this](const Platform& real) {
    Platform platform = real;
    platform.comClasses = &classes;
    return platform;
  }};
};

TEST_F(IfComClass, IsRegisteredWhenAnObjectCanBeMade) {
  const struct {
    bool byName;
    std::string identifier, line;
    bool registered;
  } cases[] = {
      {true, "Known.Class", "COM Class Known.Class is registered.", true},
      {true, "Unknown.Class", "COM Class Unknown.Class is not registered.", false},
      {true, "Gone.Class", "COM Class Gone.Class is not registered.", false},
      {true, "%NAME%", "COM Class Known.Class is not registered.", false},  // looked up as it stands
      {false, "%ID%", std::string("COM Class ") + kKnown + " is registered.", true},
      {false, "00000000-0000-0000-0000-00000000000A", std::string("COM Class ") + kKnown + " is registered.",
       true},
      {false, "00000000-0000-0000-0000-000000000000",
       "COM Class {00000000-0000-0000-0000-000000000000} is not registered.", false},
  };
  TVekIfCOMClassRegistered action(fixture.Context());
  action.FailIfNotRegistered = true;
  fixture.Context().SetVariable("NAME", std::string("Known.Class"));
  fixture.Context().SetVariable("ID", std::string(kKnown));
  for (const auto& [byName, identifier, line, registered] : cases) {
    action.UseProgID = byName;
    (byName ? action.ProgID : action.CLSID) = identifier;
    for (const bool invert : {false, true}) {
      action.Invert = invert;
      EXPECT_EQ(fixture.Run(action), registered != invert) << identifier;
      EXPECT_THAT(fixture.Lines(), ElementsAre(line));
    }
  }
}

TEST_F(IfComClass, WhatNamesNoClassFails) {
  TVekIfCOMClassRegistered action(fixture.Context());
  for (const char* name : {"", "%MISSING%"}) {
    action.ProgID = name;
    EXPECT_FALSE(fixture.Run(action));
    EXPECT_THAT(fixture.Lines(), ElementsAre("Programmatic ID is invalid."));
  }
  action.UseProgID = false;
  EXPECT_FALSE(fixture.Run(action));
  EXPECT_THAT(fixture.Lines(), ElementsAre("Class ID (GUID) is invalid."));
  const std::pair<std::string, std::string> cases[] = {
      {"{abc", "{abc"},
      {"abc", "{abc}"},
      {"00000000-0000-0000-0000-00000000000A}", "00000000-0000-0000-0000-00000000000A}"},
      {"0000000000000-0000-0000-00000000000A", "{0000000000000-0000-0000-00000000000A}"},
      {"{00000000-0000-0000-0000-00000000000G}", "{00000000-0000-0000-0000-00000000000G}"},
  };
  for (const auto& [id, shown] : cases) {
    action.CLSID = id;
    EXPECT_FALSE(fixture.Run(action));
    EXPECT_THAT(fixture.Lines(), ElementsAre("Class ID " + shown + " is not a valid GUID."));
  }
}

TEST_F(IfComClass, GuardsItsChildren) {
  auto& action = fixture.Add<TVekIfCOMClassRegistered>(fixture.project.actions);
  int runs = 0;
  fixture.Add(fixture.Below(0), [&runs](TProbe&) { return ++runs > 0; });
  const struct {
    std::string name;
    bool invert;
    int runs;
    TVekActionStatus status;
  } cases[] = {
      {"Known.Class", false, 1, TVekActionStatus::asSucceeded},
      {"Known.Class", true, 0, TVekActionStatus::asConditionNotMet},
      {"Unknown.Class", true, 1, TVekActionStatus::asSucceeded},
      {"Unknown.Class", false, 0, TVekActionStatus::asConditionNotMet},
  };
  for (const auto& [name, invert, wanted, status] : cases) {
    action.ProgID = name;
    action.Invert = invert;
    runs = 0;
    EXPECT_EQ(fixture.RunAll().result, ActionResult::Success);
    EXPECT_EQ(runs, wanted) << name;
    EXPECT_EQ(action.ActionStatus(), status);
  }
}

}  // namespace
