#include "support/RunTable.h"

#include "coreapi/Vekactionapi.h"
#include "host/project/ProjectFile.h"
#include "support/OsFixture.h"

namespace {

StringList Parts(const std::string& text) { return SplitAt(text, "|"); }

StringList DiskEntries(const std::string& text) {
  StringList entries = SplitAt(text, " ");
  for (std::string& entry : entries) entry = ReplaceAll(entry, "~", " ");
  return entries;
}

/// "$NAME=text" or "$NAME:Type=text".
void SetVariable(BuildContext& context, const std::string& line) {
  const size_t equals = line.find('=');
  const StringList name = SplitAt(line.substr(1, equals - 1), ":");
  context.SetVariable(name[0],
                      *VariantFromText(name.size() > 1 ? name[1] : "String", line.substr(equals + 1)));
}

std::string ResultText(ActionFixture& fixture, TCustomVekAction& action, const std::string& name) {
  if (name.starts_with('$')) {
    const Variant value = fixture.Context().GetVariableValue(name.substr(1));
    return std::string(VariantTypeName(value)) + ' ' + VariantToText(value);
  }
  const PropertyRow* row = action.FindProperty(name);
  return row ? PropertyToText(*row, row->get(action)) : "no such property";
}

Fault FaultOf(const std::string& fails) {
  return [words = SplitAt(fails, " ")](const PlatformCall& call) -> std::optional<SysResult> {
    const bool isMeant = call.operation == words[0] && (words[1] == "*" || NamePart(call.path) == words[1]);
    if (!isMeant) return {};
    return SysResult::Failure(static_cast<Win32Error>(std::stoul(words[2])));
  };
}

}  // namespace

void SetProperties(TCustomVekAction& action, const std::string& set) {
  for (const std::string& line : Parts(set)) {
    const size_t equals = line.find('=');
    const std::string name = line.substr(0, equals), text = line.substr(equals + 1);
    if (name.starts_with('@')) {
      AttachScript(action, name.substr(1), text);
    } else if (name.ends_with('+')) {
      AppendToListProperty(action, name.substr(0, equals - 1), text);
    } else {
      AssignProperty(action, name, text);
    }
  }
}

void ExpectRun(ActionFixture& fixture, TCustomVekAction& action, const RunCase& wanted) {
  const DiskTable disk(fixture.folder, fixture.GetPlatform());
  fixture.Context().SetVariable("D", fixture.folder.WindowsPath());
  std::vector<std::unique_ptr<ExclusiveOpen>> held;
  for (const std::string& entry : DiskEntries(wanted.before)) {
    const bool isHeld = entry.starts_with('^');
    disk.Write({entry.substr(isHeld)});
    const std::string path = fixture.folder.Path(entry.substr(isHeld, entry.find('=') - isHeld));
    if (isHeld) held.push_back(std::make_unique<ExclusiveOpen>(path));
  }
  for (const std::string& line : Parts(wanted.set)) {
    line.starts_with('$') ? SetVariable(fixture.Context(), line) : SetProperties(action, line);
  }
  if (!wanted.fails.empty()) fixture.fault = FaultOf(wanted.fails);
  EXPECT_EQ(fixture.Run(action), wanted.result);
  fixture.fault = {};
  held.clear();
  EXPECT_EQ(fixture.Lines(), disk.Lines(Parts(wanted.log)));
  EXPECT_EQ(fixture.Errors(), disk.Lines(Parts(wanted.errors)));
  EXPECT_EQ(disk.Read(), DiskEntries(wanted.after));
  for (const std::string& result : Parts(wanted.results)) {
    const std::string name = result.substr(0, result.find('='));
    EXPECT_EQ(name + '=' + ResultText(fixture, action, name), disk.Lines({result})[0]);
  }
}
