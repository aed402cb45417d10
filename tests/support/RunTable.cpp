#include "support/RunTable.h"

#include "gtest/gtest.h"

#include "coreapi/Vekactionapi.h"
#include "host/project/ProjectFile.h"

namespace {

StringList Parts(const std::string& text) { return text.empty() ? StringList() : SplitAt(text, "|"); }

}  // namespace

void SetProperties(TCustomVekAction& action, const std::string& set) {
  for (const std::string& line : Parts(set)) {
    const size_t equals = line.find('=');
    const std::string text = line.substr(equals + 1);
    const bool adds = equals > 0 && line[equals - 1] == '+';
    if (adds) {
      AppendToListProperty(action, line.substr(0, equals - 1), text);
    } else {
      AssignProperty(action, line.substr(0, equals), text);
    }
  }
}

void ExpectRun(ActionFixture& fixture, TCustomVekAction& action, const RunCase& wanted) {
  const DiskTable disk(fixture.folder, fixture.GetPlatform());
  fixture.Context().SetVariable("D", fixture.folder.WindowsPath());
  disk.Write(SplitAt(wanted.before, " "));
  SetProperties(action, wanted.set);
  EXPECT_EQ(fixture.Run(action), wanted.result);
  EXPECT_EQ(fixture.Lines(), disk.Lines(Parts(wanted.log)));
  EXPECT_EQ(fixture.Errors(), disk.Lines(Parts(wanted.errors)));
  EXPECT_EQ(disk.Read(), SplitAt(wanted.after, " "));
  for (const std::string& result : Parts(wanted.results)) {
    const std::string name = result.substr(0, result.find('='));
    const PropertyRow* row = action.FindProperty(name);
    ASSERT_NE(row, nullptr) << name;
    EXPECT_EQ(name + '=' + PropertyToText(*row, row->get(action)), result);
  }
}
