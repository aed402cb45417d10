#pragma once

#include <string>

#include "coreapi/Vekactionapi.h"

/// "Create Text File": writes a text to a new file.
class TCustomVekCreateTextFileAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  std::string FileContents;
  bool OverwriteExisting = false;
  std::string NewFileName;
  bool CreateDirectory = true;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  bool CreateDirectoryOf(const std::string& fileName);
};

class TVekCreateTextFileAction final
    : public PublishedAction<TVekCreateTextFileAction, TCustomVekCreateTextFileAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekCreateTextFileAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekCreateTextFileAction::FileContents>("FileContents"),
      Published<&TCustomVekCreateTextFileAction::OverwriteExisting>("OverwriteExisting"),
      Published<&TCustomVekCreateTextFileAction::NewFileName>("NewFileName", TextRole::File),
      Published<&TCustomVekCreateTextFileAction::CreateDirectory>("CreateDirectory"),
  };
};
