#pragma once

#include <memory>

#include "coreapi/Vekactionapi.h"

class IVekActionServices;
class NestedProject;

/// The host's own action type that executes another project. Its Execute loads the project; the engine then
/// runs its actions in place of children.
class TCustomVekRunProject : public TVekAction {
 public:
  static const ActionClass kClass;
  explicit TCustomVekRunProject(IVekActionHost& host);
  ~TCustomVekRunProject() override;

  const std::string& ProjectFile() const { return projectFile_; }
  void SetProjectFile(std::string_view value);

  StringList Variables;        // NAME=VALUE lines that stand in for what the project declares
  StringList ExportVariables;  // names whose values are taken over when it has ended

  std::string GetDescriptionKeyValue(int32_t index) const override;
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override;
  bool Validate(IVekActionValidationError& errors) override;

  /// What Execute has loaded.
  std::unique_ptr<NestedProject> TakeProject();

  /// Takes the exported variables over; false, when one is missing, which is then reported.
  bool TakeOver(NestedProject& nested);

 protected:
  bool Execute() override;

 private:
  std::string projectFile_;
  std::unique_ptr<NestedProject> nested_;
};

class TVekRunProject final : public PublishedAction<TVekRunProject, TCustomVekRunProject> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekRunProject";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekRunProject::ProjectFile, &TCustomVekRunProject::SetProjectFile>("ProjectFile",
                                                                                           TextRole::File),
      Published<&TCustomVekRunProject::Variables>("Variables"),
      Published<&TCustomVekRunProject::ExportVariables>("ExportVariables", TextRole::Variable),
  };
};
