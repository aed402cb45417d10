#pragma once

#include <atomic>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "coreapi/Vekfilesetbaseaction.h"
#include "platform/Entries.h"

/// What ends a run before its last file.
class ECopyMoveError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What to do when the destination file exists.
enum class TCopyOverwriteMode {
  owFail,
  owOverwrite,  // replace a writable file
  owReadOnly,   // replace a read-only one too
  owIgnore,     // keep it and skip the file
};
template <>
inline constexpr auto kEnumNames<TCopyOverwriteMode> = Names("TCopyOverwriteMode", "owFail", "owOverwrite",
                                                             "owReadOnly", "owIgnore");

/// "FileSet Copy/Move": copies or moves every file of a file set into one folder.
class TCustomVekFileSetCopyMoveAction : public TFileSetBaseAction {
 public:
  static const ActionClass kClass;
  using TFileSetBaseAction::TFileSetBaseAction;

  std::string DestinationFolder;
  bool RecreateHierarchy = false;
  bool Move = false;
  bool FailIfFileNotFound = false;
  bool RefreshBefore = false;
  TCopyOverwriteMode OverwriteMode = TCopyOverwriteMode::owFail;
  bool ClearAttributes = false;

  bool Validate(IVekActionValidationError& errors) override;
  bool CanTerminate() const override { return true; }
  void TerminateAction() override;

 protected:
  bool ExecuteFileSet(IVekFileSet& fileSet) override;

 private:
  void StartRun();
  bool MayMoveFrom(const std::string& baseFolder, IVekFileSet& fileSet) const;
  bool IsThere(const std::string& file) const;
  std::string DestinationOf(const std::string& file, const std::string& baseFolder,
                            const std::string& destinationFolder) const;
  void CopyOrMove(const std::string& source, const std::string& destination);
  bool MakeRoom(const std::string& destination);
  SysResult Transfer(const std::string& source, const std::string& destination);
  void ShowProgress(uint64_t transferred, uint64_t size);
  std::string SystemMessage(std::string_view text, SysResult result) const;

  std::atomic<bool> cancel_ = false;
  std::string madeFolder_;      // the last one that was made or seen
  uint64_t totalBytes_ = 0;     // of the file set
  uint64_t finishedBytes_ = 0;  // of the files that are done
  uint64_t fileBytes_ = 0;      // of the current file
  int32_t lastPercent_ = 0;
  std::string progressText_;
};

class TVekFileSetCopyMoveAction final
    : public PublishedAction<TVekFileSetCopyMoveAction, TCustomVekFileSetCopyMoveAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekFileSetCopyMoveAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekFileSetCopyMoveAction::DestinationFolder>("DestinationFolder", TextRole::Folder),
      Published<&TCustomVekFileSetCopyMoveAction::RecreateHierarchy>("RecreateHierarchy"),
      Published<&TCustomVekFileSetCopyMoveAction::Move>("Move"),
      Published<&TCustomVekFileSetCopyMoveAction::FailIfFileNotFound>("FailIfFileNotFound"),
      Published<&TCustomVekFileSetCopyMoveAction::RefreshBefore>("RefreshBefore"),
      Published<&TCustomVekFileSetCopyMoveAction::OverwriteMode>("OverwriteMode"),
      Published<&TCustomVekFileSetCopyMoveAction::ClearAttributes>("ClearAttributes"),
  };
};
