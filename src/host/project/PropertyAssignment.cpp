#include "host/project/PropertyAssignment.h"

#include "host/project/ProjectFile.h"
#include "host/project/Quoted.h"

namespace {

std::vector<std::string_view> PublishedNames(const TCustomVekAction& action) {
  std::vector<std::string_view> names;
  for (const PropertyRow* row : action.PropertyRows()) {
    if (row->published && row->set) names.push_back(row->name);
  }
  return names;
}

std::string PropertyPlace(const PropertyRow& row) { return "property " + std::string(row.name); }

}  // namespace

const PropertyRow& AssignableProperty(const TCustomVekAction& action, std::string_view name) {
  const PropertyRow* row = action.FindProperty(name);
  if (!row || !row->published) {
    throw EProjectError("unknown property " + Quoted(name) + Suggestion(name, PublishedNames(action)));
  }
  if (!row->set) throw EProjectError(PropertyPlace(*row) + " is read-only");
  return *row;
}

std::string MisfitText(const PropertyRow& row, std::string_view text) {
  return Quoted(text) + " is not " + DescribeExpectedText(row);
}

PropertyValue FittingValue(const PropertyRow& row, std::string_view text) {
  if (auto value = PropertyFromText(row, text)) return *std::move(value);
  throw EProjectError(PropertyPlace(row) + ": " + MisfitText(row, text));
}

void AssignProperty(TCustomVekAction& action, std::string_view name, std::string_view text) {
  const PropertyRow& row = AssignableProperty(action, name);
  row.set(action, FittingValue(row, text));
}

void AppendToListProperty(TCustomVekAction& action, std::string_view name, std::string_view line) {
  const PropertyRow& row = AssignableProperty(action, name);
  if (row.type != PropertyType::StringList) throw EProjectError(PropertyPlace(row) + " is not a list");
  PropertyValue lines = row.get(action);
  std::get<StringList>(lines).emplace_back(line);
  row.set(action, lines);
}

void AttachScript(TCustomVekAction& action, std::string_view eventName, std::string text) {
  if (IVekActionScript* script = action.GetScriptByName(eventName)) return script->SetText(std::move(text));
  const StringList events = action.ScriptEvents();
  const std::vector<std::string_view> names(events.begin(), events.end());
  throw EProjectError(names.empty()
                          ? "script event " + Quoted(eventName) + ": the action has no script events"
                          : "unknown script event " + Quoted(eventName) + Suggestion(eventName, names));
}
