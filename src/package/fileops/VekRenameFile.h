#pragma once

#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"

/// "Rename File(s)": renames every entry that matches a specification after a pattern, in which "*" stands
/// for the name or the extension that the entry had. It always answers failure.
class TCustomRenameFilesAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  WideString SourceSpec;
  WideString TargetSpec;

 protected:
  bool Execute() override;

 private:
  void RenameMatches(const std::string& spec, const std::string& target) const;
};

class TRenameFilesAction final : public PublishedAction<TRenameFilesAction, TCustomRenameFilesAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TRenameFilesAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomRenameFilesAction::SourceSpec>("SourceSpec", TextRole::Wildcard)
          .Means("The files to rename; wildcards (*, ?) may be used"),
      Published<&TCustomRenameFilesAction::TargetSpec>("TargetSpec")
          .Means("The new names; * keeps the old name, or the old extension"),
  };
};
