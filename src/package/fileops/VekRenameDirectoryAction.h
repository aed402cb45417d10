#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"

/// "Rename File or Directory": gives one file or folder another name in the folder that holds it.
class TCustomRenameDirAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  std::string SourceDirectory;
  std::string NewDirName;  // of a file too
  std::string SourceFile;
  bool RenameDir = true;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  std::optional<std::string> FindSource() const;
  bool CheckName(const std::string& name) const;
};

class TRenameDirAction final : public PublishedAction<TRenameDirAction, TCustomRenameDirAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TRenameDirAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomRenameDirAction::SourceDirectory>("SourceDirectory", TextRole::Folder)
          .Means("The folder to rename"),
      Published<&TCustomRenameDirAction::NewDirName>("NewDirName").Means("The new name, without a path"),
      Published<&TCustomRenameDirAction::SourceFile>("SourceFile", TextRole::File)
          .Means("The file to rename, when RenameDir is off"),
      Published<&TCustomRenameDirAction::RenameDir>("RenameDir").Means("Rename a folder instead of a file"),
  };
};
