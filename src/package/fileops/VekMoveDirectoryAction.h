#pragma once

#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"

/// "Move Directory": gives a folder another place on its volume.
class TCustomVekMoveDirectoryAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  std::string Directory;
  std::string DestinationDirectory;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;
};

class TVekMoveDirectoryAction final
    : public PublishedAction<TVekMoveDirectoryAction, TCustomVekMoveDirectoryAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekMoveDirectoryAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekMoveDirectoryAction::Directory>("Directory", TextRole::Folder)
          .Means("The folder to move"),
      Published<&TCustomVekMoveDirectoryAction::DestinationDirectory>("DestinationDirectory",
                                                                      TextRole::Folder)
          .Means("Its new path, the folder's own name included"),
  };
};
