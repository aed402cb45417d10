#include "iterators/VekIniFileIteratorAction.h"

#include "platform/IniFiles.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kHidden[] = {"ItemCount", "ItemIndex", "VekVariable"};

}  // namespace

const ActionClass TCustomIniFileIterator::kClass{
    .inherited = &TVekBaseIterator::kClass,
    .className = "TCustomIniFileIterator",
    .actionName = "Ini File Iterator",
    .helpTopicID = 3330,
    .quickHelpFilename = "Plugins\\IniFileIterator.html",
    .hiddenProperties = kHidden,
};

TCustomIniFileIterator::TCustomIniFileIterator(IVekActionHost& host) : TVekBaseIterator(host) {
  assignsVariables = true;
}

bool TCustomIniFileIterator::Validate(IVekActionValidationError& errors) {
  const bool iteratesSections = IteratorMode == TIniIteratorMode::iiSections;
  const struct {
    bool isMissing;
    std::string_view title, message;
  } checks[] = {
      {IniFilename.empty(), "Inifile", "An INI file has not been set"},
      {!iteratesSections && NameVariable.empty() && ValueVariable.empty(), "Variable",
       "Both Name variable and Values variable has not been set"},
      {iteratesSections && SectionsVar.empty(), "Sections Variable",
       "The Sections Variable has not been set"},
  };
  bool complete = true;
  for (const auto& check : checks) {
    if (!check.isMissing) continue;
    errors.AddError(check.title, check.message);
    complete = false;
  }
  return complete;
}

void TCustomIniFileIterator::BeforeFirstIteration() {
  CheckVariables();
  std::string path;
  if (!TryExpandExpression("Ini File", IniFilename, path, true)) return;
  SendMessage("Searching for items...");
  try {
    if (!Populate(path)) throw EIteratorException("Failed to populate list from Ini file.");
    SendMessage("Found " + std::to_string(items_.size()) + " Items");
    SetIterationCount(static_cast<int32_t>(items_.size()));
  } catch (const std::exception& error) {
    throw EIteratorException(std::string("Error while searching for items : ") + error.what());
  }
}

void TCustomIniFileIterator::CheckVariables() const {
  if (IteratorMode == TIniIteratorMode::iiSections) {
    if (SectionsVar.empty()) throw EIteratorException("Sections Variable not set");
  } else if (NameVariable.empty() && ValueVariable.empty()) {
    throw EIteratorException("Name and Value variables not set");
  }
}

/// False when the section's name cannot be expanded.
bool TCustomIniFileIterator::Populate(const std::string& path) {
  items_.clear();
  IniFiles& iniFiles = *GetPlatform().iniFiles;
  if (IteratorMode == TIniIteratorMode::iiSections) {
    Check(iniFiles.ReadSections(path, items_));
    return true;
  }
  std::string section;
  if (!TryExpandExpression("Section Name", SectionName, section, true)) return false;
  std::vector<IniEntry> entries;
  Check(iniFiles.ReadEntries(path, section, entries));
  for (const IniEntry& entry : entries) items_.push_back(entry.name + '=' + entry.value);
  return true;
}

void TCustomIniFileIterator::Check(const SysResult& result) const {
  if (!result) throw EVekError(SysErrorMessage(result.code));
}

Variant TCustomIniFileIterator::GetCurrentValue() {
  const std::string& item = items_[static_cast<size_t>(GetCurrentIteration()) - 1];
  if (IteratorMode == TIniIteratorMode::iiSections) {
    SetVariable(SectionsVar, item);
    return {};
  }
  const size_t equals = item.find('=');
  if (!NameVariable.empty()) SetVariable(NameVariable, item.substr(0, equals));
  if (!ValueVariable.empty()) SetVariable(ValueVariable, item.substr(equals + 1));
  return {};
}
