#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"
#include "platform/Entries.h"

/// "Copy File(s)": copies the files that match a specification with wildcards, in sub-folders too when
/// asked. "Move File(s)" has the same settings and derives from it.
class TCustomCopyFilesAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  const WideString& FileSpec() const { return fileSpec_; }
  void SetFileSpec(std::string_view value);  // one with wildcards makes the target a folder
  WideString Target;
  WordBool Force = false;
  WordBool TargetIsDir() const { return targetIsDir_; }
  void SetTargetIsDir(WordBool value);  // false ends recursion
  WordBool FailIfExists = false;
  WordBool OverwriteReadOnly = false;
  WordBool Recurse() const { return recurse_; }
  void SetRecurse(WordBool value);  // true makes the target a folder
  WordBool ClearAttributes = false;
  WordBool FailIfZeroFiles = false;

  // Counts of the last run; they are saved with the project.
  int32_t FilesAffected = 0;
  int32_t ErrorCount = 0;

  std::string GetDescriptionKeyValue(int32_t index) const override;
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override;
  bool Validate(IVekActionValidationError& errors) override;
  bool CanTerminate() const override { return true; }
  void TerminateAction() override { cancel_ = true; }

 protected:
  bool Execute() override;

  /// Copies one file; a failure has its reason in the message.
  virtual bool CopyFile(const std::string& source, const std::string& target, IVekActionLogMessage& message);

  // What copying and moving share.
  void StartRun();
  std::string Expanded(const WideString& text) const;
  bool RunAndReport(const std::shared_ptr<IVekActionLogMessage>& message, std::string_view summary,
                    const std::function<bool()>& work);
  void MakeFolderOf(const std::string& target, const std::string& source);
  void ClearAttributesOf(const std::string& target) const;
  void StartProgress(std::string_view what, const std::string& source, const std::string& target);
  void ShowProgress(uint64_t transferred, uint64_t total);

 private:
  struct CopyRun;
  bool CopyTree(CopyRun& run, const std::string& spec, const std::string& target);
  bool CopyMatches(CopyRun& run, const std::string& spec, const std::string& folder,
                   const std::string& target);
  void CopySubFolders(CopyRun& run, const std::string& folder, std::string_view mask,
                      const std::string& target);

  WideString fileSpec_;
  WordBool targetIsDir_ = false;
  WordBool recurse_ = false;

  std::atomic<bool> cancel_ = false;
  CopyOptions copyOptions_{.cancel = &cancel_, .progress = [this](uint64_t transferred, uint64_t total) {
                             ShowProgress(transferred, total);
                           }};
  std::string madeFolder_;  // the last one that Force made
  std::string progressText_;
  int32_t lastPercent_ = 0;
};

/// "Move File(s)": moves the files of one folder that match a specification with wildcards. Folders and
/// files that carry the system attribute are never matched.
class TCustomMoveFilesAction : public TCustomCopyFilesAction {
 public:
  static const ActionClass kClass;
  using TCustomCopyFilesAction::TCustomCopyFilesAction;

  bool StopOnAnyErrors = false;

 protected:
  bool Execute() override;

 private:
  bool MoveMatches(const std::string& spec, const std::string& target, IVekActionLogMessage& message);
  bool MoveMatch(const std::string& source, const std::string& target, IVekActionLogMessage& message);
  std::optional<std::string> PrepareTarget(const std::string& target);
  SysResult MoveFile(const std::string& source, const std::string& target, bool replaces);

  bool readOnlyMet_ = false;  // this run has come upon a read-only target
};

/// What both classes publish.
inline constexpr PropertyRow kCopyMoveProperties[] = {
    Published<&TCustomCopyFilesAction::FileSpec, &TCustomCopyFilesAction::SetFileSpec>("FileSpec",
                                                                                       TextRole::Wildcard),
    Published<&TCustomCopyFilesAction::Target>("Target", TextRole::File),
    Published<&TCustomCopyFilesAction::Force>("Force"),
    Published<&TCustomCopyFilesAction::TargetIsDir, &TCustomCopyFilesAction::SetTargetIsDir>("TargetIsDir"),
    Published<&TCustomCopyFilesAction::FailIfExists>("FailIfExists"),
    Published<&TCustomCopyFilesAction::OverwriteReadOnly>("OverwriteReadOnly"),
    Published<&TCustomCopyFilesAction::Recurse, &TCustomCopyFilesAction::SetRecurse>("Recurse").Means(
        "Copying only: moving never goes into sub-folders"),
    Published<&TCustomCopyFilesAction::ClearAttributes>("ClearAttributes"),
    Published<&TCustomCopyFilesAction::FailIfZeroFiles>("FailIfZeroFiles")
        .Means(
            "Copying: fail when no file was copied. Moving: fail when files were found and none was moved"),
    Published<&TCustomCopyFilesAction::FilesAffected>("FilesAffected")
        .Means("How many files the last run copied or moved"),
    Published<&TCustomCopyFilesAction::ErrorCount>("ErrorCount")
        .Means("How many files the last run could not move; copying leaves it at 0"),
};

class TCopyFilesAction final : public PublishedAction<TCopyFilesAction, TCustomCopyFilesAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TCopyFilesAction";
  static constexpr std::span<const PropertyRow> kPublished = kCopyMoveProperties;
};

class TMoveFilesAction final : public PublishedAction<TMoveFilesAction, TCustomMoveFilesAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TMoveFilesAction";
  static constexpr auto kPublished =
      Extended(kCopyMoveProperties,
               Published<&TCustomMoveFilesAction::StopOnAnyErrors>("StopOnAnyErrors")
                   .Means("Stop at the first file that cannot be moved, instead of going on with the next"));
};
