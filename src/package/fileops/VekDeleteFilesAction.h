#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"

struct FoundEntry;

/// "Delete File(s)": deletes every file of one folder that matches a specification with wildcards. Folders
/// and files that carry the system attribute are never matched.
class TCustomDeleteFilesAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  const std::string& FileSpec() const { return fileSpec_; }
  void SetFileSpec(std::string_view value);
  WordBool DeleteReadOnly = false;
  WordBool DeleteHidden = false;
  WordBool FailIfNoFile = true;

  /// The number of files that the last run deleted.
  int32_t FilesAffected() const { return filesAffected_; }

  std::string GetDescriptionKeyValue(int32_t index) const override;
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override;
  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  bool DeleteMatches(const std::string& spec, IVekActionLogMessage& message);
  bool DeleteMatch(const std::string& fileName, const FoundEntry& match, IVekActionLogMessage& message);

  std::string fileSpec_;
  int32_t filesAffected_ = 0;
};

class TDeleteFilesAction final : public PublishedAction<TDeleteFilesAction, TCustomDeleteFilesAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TDeleteFilesAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomDeleteFilesAction::FileSpec, &TCustomDeleteFilesAction::SetFileSpec>(
          "FileSpec", TextRole::Wildcard),
      Published<&TCustomDeleteFilesAction::DeleteReadOnly>("DeleteReadOnly")
          .Means("Without it, the first read-only file ends the step, which has failed"),
      Published<&TCustomDeleteFilesAction::DeleteHidden>("DeleteHidden")
          .Means("Clears the hidden attribute first; hidden files are deleted either way"),
      PublishedTruth<&TCustomDeleteFilesAction::FailIfNoFile>("FailIfNoFile"),
      RunTime<&TCustomDeleteFilesAction::FilesAffected>("FilesAffected"),
  };
};
