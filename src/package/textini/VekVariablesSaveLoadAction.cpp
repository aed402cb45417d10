#include "textini/VekVariablesSaveLoadAction.h"

#include <map>

#include "platform/Entries.h"
#include "platform/Platform.h"
#include "textini/Vekconversions.h"
#include "textini/Vekinifileobject.h"

const ActionClass TVekVariablesSaveLoadAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TVekVariablesSaveLoadAction",
    .quickHelpFilename = "Plugins\\VariablesSaveLoad.html",
};

const ActionClass TCustomVekVariablesSaveAction::kClass{
    .inherited = &TVekVariablesSaveLoadAction::kClass,
    .className = "TCustomVekVariablesSaveAction",
    .actionName = "Save Variables to INI",
    .helpTopicID = 3170,
};

const ActionClass TCustomVekVariablesLoadAction::kClass{
    .inherited = &TVekVariablesSaveLoadAction::kClass,
    .className = "TCustomVekVariablesLoadAction",
    .actionName = "Load Variables from INI",
    .helpTopicID = 3180,
};

/// The entries of a section by name, of which the first counts, and those that this run adds to it.
class TCustomVekVariablesLoadAction::SavedSection {
 public:
  struct Entry {
    std::string text;
    bool isNew = false;  // added, and its variable's turn is still to come
  };

  SavedSection(const TIniFile& ini, std::string name) : ini_(ini), name_(std::move(name)) {
    for (IniEntry& entry : ini_.ReadSection(name_)) entries_.try_emplace(entry.name, Entry{entry.value});
  }

  Entry* Find(const std::string& name) {
    const auto found = entries_.find(name);
    return found == entries_.end() ? nullptr : &found->second;
  }
  bool Holds(const std::string& name) const { return entries_.contains(name); }

  void Add(const std::vector<IniEntry>& added) {
    ini_.WriteSection(name_, added, OtherLines::Keep);
    for (const IniEntry& entry : added) entries_.try_emplace(entry.name, Entry{entry.value, true});
  }

 private:
  const TIniFile& ini_;
  std::string name_;
  std::map<std::string, Entry, LessNoCase> entries_;
};

bool TVekVariablesSaveLoadAction::Validate(IVekActionValidationError& errors) {
  if (INIFile.empty()) errors.AddError("IniFile", "IniFile has not been set");
  if (SectionName.empty()) errors.AddError("SectionName", "SectionName has not been set");
  return !INIFile.empty() && !SectionName.empty();
}

std::optional<TVekVariablesSaveLoadAction::Place> TVekVariablesSaveLoadAction::ExpandPlace() const {
  Place place;
  if (!TryExpandExpression("IniFile", INIFile, place.path, true)) return {};
  if (!TryExpandExpression("SectionName", SectionName, place.section, true)) return {};
  return place;
}

void TVekVariablesSaveLoadAction::ReportUnusable(const Place& place, const std::exception& error) const {
  SendMessage("Error Opening Ini File : " + place.path + ": " + error.what());
}

bool TCustomVekVariablesSaveAction::Execute() {
  const auto place = ExpandPlace();
  std::vector<IniEntry> entries;
  if (!place || !CollectEntries(entries)) return false;
  try {
    TIniFile(GetPlatform(), place->path)
        .WriteSection(place->section, entries, EraseSection ? OtherLines::Remove : OtherLines::Keep);
  } catch (const std::exception& error) {
    ReportUnusable(*place, error);
    return false;
  }
  SendMessage("Variables saved to " + place->path);
  return true;
}

bool TCustomVekVariablesSaveAction::CollectEntries(std::vector<IniEntry>& entries) const {
  try {
    for (const std::string& name : Variables) {
      entries.push_back({name, ExpandExpression('%' + name + '%', false)});
    }
    return true;
  } catch (const std::exception& error) {
    SendMessage(std::string("Error expanding variable: ") + error.what());
    return false;
  }
}

bool TCustomVekVariablesLoadAction::Execute() {
  const auto place = ExpandPlace();
  if (!place) return false;
  if (!GetPlatform().entries->FileExists(place->path)) {
    SendMessage("File " + place->path + " does not exist.");
    if (!IgnoreFileNotFound) return false;
  }
  const TIniFile ini(GetPlatform(), place->path);
  std::optional<SavedSection> section;
  try {
    section.emplace(ini, place->section);
  } catch (const std::exception& error) {
    ReportUnusable(*place, error);
    return false;
  }
  for (size_t i = 0; i < Variables.size(); ++i) {
    if (!LoadVariable(i, *section)) return false;
  }
  SendMessage("Variables loaded from " + place->path);
  return true;
}

bool TCustomVekVariablesLoadAction::LoadVariable(size_t index, SavedSection& section) const {
  const std::string& name = Variables[index];
  if (!IsVariableDefined(name)) {
    SendMessage("Variable not defined: " + name);
    return !FailIfVariableNotDefined;
  }
  try {
    SavedSection::Entry* entry = section.Find(name);
    if (!entry || entry->isNew) return MeetMissing(index, section);
    return SetTyped(index, entry->text);
  } catch (const std::exception& error) {
    ReportError(error.what());
    SendMessage("Error setting variable " + name);
    return false;
  }
}

/// The variable keeps its value, and the file gets it where that is asked for.
bool TCustomVekVariablesLoadAction::MeetMissing(size_t index, SavedSection& section) const {
  const std::string& name = Variables[index];
  if (FailIfVariableNotInIniFile || !CreateVarInINIifNotExists) {
    SendMessage("Variable not found in INI: " + name);
    return !FailIfVariableNotInIniFile;
  }
  if (!section.Holds(name)) section.Add(MissingFrom(index, section));
  section.Find(name)->isNew = false;
  SendMessage("Variable not found in INI, created: " + name);
  return true;
}

/// The values of the variables from there on, up to the first that is not to be created: they are written
/// together, so that the file is changed once.
std::vector<IniEntry> TCustomVekVariablesLoadAction::MissingFrom(size_t index,
                                                                 const SavedSection& section) const {
  std::vector<IniEntry> missing;
  for (; index < Variables.size(); ++index) {
    const std::string& name = Variables[index];
    if (!IsVariableDefined(name) || section.Holds(name)) break;
    missing.push_back({name, VariantToText(GetVariableValue(name))});
  }
  return missing;
}

/// Text that does not fit leaves the variable the value that it has, as far as that fits.
bool TCustomVekVariablesLoadAction::SetTyped(size_t index, const std::string& text) const {
  const std::string& name = Variables[index];
  if (index >= VariableTypes.size()) throw EVekError("no type is given for variable \"" + name + '"');
  const std::string& type = VariableTypes[index];
  const std::string current = VariantToText(GetVariableValue(name));
  if (SameText(type, "STRING")) {
    SetVariable(name, text);
  } else if (SameText(type, "BOOLEAN")) {
    const bool before = StringToBoolean(current).value_or(false);
    SetVariable(name, StringToBoolean(text).value_or(before));
  } else if (SameText(type, "INTEGER")) {
    const int32_t before = StringToInteger(current).value_or(0);
    SetVariable(name, int64_t{StringToInteger(text).value_or(before)});
  } else {
    SendMessage("Invalid value for variable type: " + type);
    return false;
  }
  return true;
}
