#include "platform/ComClasses.h"
#include "process/VekIFCOMClassRegistered.h"
#include "support/Exchanged.h"
#include "support/ProjectFixture.h"
#include "support/RunTable.h"

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

struct ComClassRuns : ProjectFixture {
  ComClassRuns() : ProjectFixture(Exchanged(&Platform::comClasses, classes)) {}
  OneClass classes;
};

const std::string kName = "FailIfNotRegistered=True|ProgID=",
                  kId = "FailIfNotRegistered=True|UseProgID=False|CLSID=";
const std::string kClass = "COM Class ", kIs = " is registered.", kIsNot = " is not registered.";

std::string NoGuid(const std::string& id) { return "Class ID " + id + " is not a valid GUID."; }

// clang-format off
const RunCase kRuns[] = {
    {"ByName", kName + "Known.Class", "", true, kClass + "Known.Class" + kIs, ""},
    {"ByNameAndNotToBe", kName + "Known.Class|Invert=True", "", false, kClass + "Known.Class" + kIs, ""},
    {"AnUnknownName", kName + "Unknown.Class", "", false, kClass + "Unknown.Class" + kIsNot, ""},
    {"AnUnknownNameIsNotToBe", kName + "Unknown.Class|Invert=True", "", true, kClass + "Unknown.Class" + kIsNot, ""},
    {"ANameOfAMissingClass", kName + "Gone.Class", "", false, kClass + "Gone.Class" + kIsNot, ""},
    {"LookedUpAsItStands", "$NAME=Known.Class|" + kName + "%NAME%", "", false, kClass + "Known.Class" + kIsNot, ""},
    {"ById", std::string("$ID=") + kKnown + '|' + kId + "%ID%", "", true, kClass + kKnown + kIs, ""},
    {"ByIdWithoutBraces", kId + "00000000-0000-0000-0000-00000000000A", "", true, kClass + kKnown + kIs, ""},
    {"AnUnknownId", kId + "00000000-0000-0000-0000-000000000000", "", false, kClass + "{00000000-0000-0000-0000-000000000000}" + kIsNot, ""},
    {"NoName", "ProgID=", "", false, "Programmatic ID is invalid.", "", "", "Programmatic ID: the text is blank"},
    {"ANameThatCannotBeExpanded", "ProgID=%X%", "", false, "Programmatic ID is invalid.", "", "", "Programmatic ID: " + kUnknownX},
    {"NoId", "UseProgID=False", "", false, "Class ID (GUID) is invalid.", "", "", "Class ID (GUID): the text is blank"},
    {"AnOpenBrace", kId + "{abc", "", false, NoGuid("{abc"), ""},
    {"TooShort", kId + "abc", "", false, NoGuid("{abc}"), ""},
    {"AClosingBraceAlone", kId + "00000000-0000-0000-0000-00000000000A}", "", false, NoGuid("00000000-0000-0000-0000-00000000000A}"), ""},
    {"AMissingHyphen", kId + "0000000000000-0000-0000-00000000000A", "", false, NoGuid("{0000000000000-0000-0000-00000000000A}"), ""},
    {"NoHexadecimalDigit", kId + "{00000000-0000-0000-0000-00000000000G}", "", false, NoGuid("{00000000-0000-0000-0000-00000000000G}"), ""},
};
// clang-format on

TEST(IfComClass, Runs) { ExpectRuns<TVekIfCOMClassRegistered, ComClassRuns>(kRuns); }

TEST(IfComClass, GuardsItsChildren) {
  ComClassRuns fixture;
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
