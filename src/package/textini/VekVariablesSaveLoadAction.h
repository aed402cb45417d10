#pragma once

#include <optional>
#include <string>
#include <vector>

#include "coreapi/Vekactionapi.h"

struct IniEntry;

/// What saving variables to a section of an INI file and loading them from it have in common.
class TVekVariablesSaveLoadAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  std::string INIFile;
  StringList Variables;  // their names
  std::string SectionName = "VekVariables";
  static constexpr PropertyRow kPublished[] = {
      Published<&TVekVariablesSaveLoadAction::INIFile>("INIFile", TextRole::File).Means("The ini file"),
      Published<&TVekVariablesSaveLoadAction::Variables>("Variables", TextRole::Variable)
          .Means("The names of the variables, one a line"),
      Published<&TVekVariablesSaveLoadAction::SectionName>("SectionName").Means("The section of the file"),
  };

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  /// Where the variables stand, expanded.
  struct Place {
    std::string path, section;
  };
  std::optional<Place> ExpandPlace() const;
  void ReportUnusable(const Place& place, const std::exception& error) const;
};

/// "Save Variables to INI": writes the values of variables as entries of one section. The file is changed in
/// one step, after every value is known, so that a failure leaves what was saved before.
class TCustomVekVariablesSaveAction : public TVekVariablesSaveLoadAction {
 public:
  static const ActionClass kClass;
  using TVekVariablesSaveLoadAction::TVekVariablesSaveLoadAction;

  bool EraseSection = true;

 protected:
  bool Execute() override;

 private:
  bool CollectEntries(std::vector<IniEntry>& entries) const;
};

/// "Load Variables from INI": reads them back, each as the type that is given for it.
class TCustomVekVariablesLoadAction : public TVekVariablesSaveLoadAction {
 public:
  static const ActionClass kClass;
  using TVekVariablesSaveLoadAction::TVekVariablesSaveLoadAction;

  bool FailIfVariableNotDefined = true;
  bool FailIfVariableNotInIniFile = true;
  StringList VariableTypes;  // STRING, BOOLEAN or INTEGER, at the index of the variable
  bool CreateVarInINIifNotExists = false;
  bool IgnoreFileNotFound = false;

 protected:
  bool Execute() override;

 private:
  class SavedSection;

  bool LoadVariable(size_t index, SavedSection& section) const;
  bool MeetMissing(size_t index, SavedSection& section) const;
  bool SetTyped(size_t index, const std::string& text) const;
  std::vector<IniEntry> MissingFrom(size_t index, const SavedSection& section) const;
};

class TVekVariablesSaveAction final
    : public PublishedAction<TVekVariablesSaveAction, TCustomVekVariablesSaveAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekVariablesSaveAction";
  static constexpr auto kPublished =
      Extended(TVekVariablesSaveLoadAction::kPublished,
               Published<&TCustomVekVariablesSaveAction::EraseSection>("EraseSection")
                   .Means("Empty the section first"));
};

class TVekVariablesLoadAction final
    : public PublishedAction<TVekVariablesLoadAction, TCustomVekVariablesLoadAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekVariablesLoadAction";
  static constexpr auto kPublished = Extended(
      TVekVariablesSaveLoadAction::kPublished,
      Published<&TCustomVekVariablesLoadAction::FailIfVariableNotDefined>("FailIfVariableNotDefined")
          .Means("Fail when a variable is not defined, instead of leaving it out"),
      Published<&TCustomVekVariablesLoadAction::FailIfVariableNotInIniFile>("FailIfVariableNotInIniFile")
          .Means("Fail when the section has no entry for a variable"),
      Published<&TCustomVekVariablesLoadAction::VariableTypes>("VariableTypes")
          .Means("STRING, BOOLEAN or INTEGER for each variable, in the same order"),
      Published<&TCustomVekVariablesLoadAction::CreateVarInINIifNotExists>("CreateVarInINIifNotExists")
          .Means("Add an entry that is missing, with the variable's present value"),
      Published<&TCustomVekVariablesLoadAction::IgnoreFileNotFound>("IgnoreFileNotFound")
          .Means("Go on when there is no file, as if it were empty"));
};
