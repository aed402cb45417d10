#pragma once

#include <string>

#include "interaction/Vekvariableresult.h"

enum class TPromptForFileOrDir { pfFile, pfDirectory };
template <>
inline constexpr auto kEnumNames<TPromptForFileOrDir> = Names("TPromptForFileOrDir", "pfFile", "pfDirectory");

/// "Prompt for File or Directory": the user chooses a path, which goes into a variable.
class TCustomVekpromptForFileOrDirAction : public TVekInteractiveAction {
 public:
  static const ActionClass kClass;
  using TVekInteractiveAction::TVekInteractiveAction;

  std::string PromptText;
  TPromptForFileOrDir PromptFor = TPromptForFileOrDir::pfFile;
  std::string VekVariable;
  std::string InitialPath;
  std::string Filter = "All Files (*.*)|*.*";
  bool MustExist = true;
  bool FailOnCancel = true;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  bool Choose(const std::string& prompt, std::string& path);
};

class TVekpromptForFileOrDirAction final
    : public PublishedAction<TVekpromptForFileOrDirAction, TCustomVekpromptForFileOrDirAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekpromptForFileOrDirAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekpromptForFileOrDirAction::PromptText>("PromptText"),
      Published<&TCustomVekpromptForFileOrDirAction::PromptFor>("PromptFor"),
      Published<&TCustomVekpromptForFileOrDirAction::VekVariable>("VekVariable", TextRole::Variable),
      Published<&TCustomVekpromptForFileOrDirAction::InitialPath>("InitialPath", TextRole::File),
      Published<&TCustomVekpromptForFileOrDirAction::Filter>("Filter"),
      Published<&TCustomVekpromptForFileOrDirAction::MustExist>("MustExist"),
      Published<&TCustomVekpromptForFileOrDirAction::FailOnCancel>("FailOnCancel"),
  };
};
