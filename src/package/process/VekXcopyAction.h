#pragma once

#include <string>

#include "coreapi/Vekexecuteaction.h"

enum class TVekXCopyMode {
  mdNormal,
  mdRecursive,
  mdTest,          // only lists
  mdDirStructure,  // only folders
};
template <>
inline constexpr auto kEnumNames<TVekXCopyMode> = Names("TVekXCopyMode", "mdNormal", "mdRecursive", "mdTest",
                                                        "mdDirStructure");

enum class TVekXCopyLogMode { logNormal, logQuiet, logVerbose };
template <>
inline constexpr auto kEnumNames<TVekXCopyLogMode> = Names("TVekXCopyLogMode", "logNormal", "logQuiet",
                                                           "logVerbose");

/// "XCopy": copies files and trees with the system's xcopy.exe. Excluded names go to it in a temporary file,
/// which stays on the disk.
class TCustomXCopyAction : public TVekExecuteAbstractAction {
 public:
  static const ActionClass kClass;
  explicit TCustomXCopyAction(IVekActionHost& host);

  std::string Source, Destination;
  StringList ExcludeFiles;
  TVekXCopyMode XCopyMode = TVekXCopyMode::mdNormal;
  TVekXCopyLogMode XCopyLogMode = TVekXCopyLogMode::logNormal;
  bool OnlyArchiveFiles = false;
  bool TurnOffArchiveBit = false;  // of the archive files that are copied
  bool CopyHiddenAndSys = false;
  bool OverwriteReadOnly = false;
  bool CopyAttributes = false;
  bool OnlyFilesThatAlreadyExist = false;
  bool CopyUsingShortNames = false;
  bool CopyNetworkedFiles = false;
  bool CopyNewerFiles = false;
  bool CopyFilesChnagedAfter = false;  // spelt so in saved projects
  bool Verify = false;
  bool IgnoreErrors = false;
  TDateTime ChangedAfterDate;  // from the start, the day on which the action was made
  bool CopyOwnershipAndACL = false;
  bool CopyFileAuditSettings = false;
  bool CopyEncryptedIfNotSupportedInDest = false;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  std::string GetExecutable() override;
  std::string GetStartingDir() override;
  bool GetCommandLine(ICommandLineBuilder& builder) override;

 private:
  bool AddExcludedFiles(ICommandLineBuilder& builder) const;
  void AddOptions(ICommandLineBuilder& builder) const;
};

class TVekXCopyAction final : public PublishedAction<TVekXCopyAction, TCustomXCopyAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekXCopyAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomXCopyAction::Source>("Source", TextRole::Wildcard),
      Published<&TCustomXCopyAction::Destination>("Destination", TextRole::Folder),
      Published<&TCustomXCopyAction::ExcludeFiles>("ExcludeFiles"),
      Published<&TCustomXCopyAction::XCopyMode>("XCopyMode"),
      Published<&TCustomXCopyAction::XCopyLogMode>("XCopyLogMode"),
      Published<&TCustomXCopyAction::OnlyArchiveFiles>("OnlyArchiveFiles"),
      Published<&TCustomXCopyAction::TurnOffArchiveBit>("TurnOffArchiveBit"),
      Published<&TCustomXCopyAction::CopyHiddenAndSys>("CopyHiddenAndSys"),
      Published<&TCustomXCopyAction::OverwriteReadOnly>("OverwriteReadOnly"),
      Published<&TCustomXCopyAction::CopyAttributes>("CopyAttributes"),
      Published<&TCustomXCopyAction::OnlyFilesThatAlreadyExist>("OnlyFilesThatAlreadyExist"),
      Published<&TCustomXCopyAction::CopyUsingShortNames>("CopyUsingShortNames"),
      Published<&TCustomXCopyAction::CopyNetworkedFiles>("CopyNetworkedFiles"),
      Published<&TCustomXCopyAction::CopyNewerFiles>("CopyNewerFiles"),
      Published<&TCustomXCopyAction::CopyFilesChnagedAfter>("CopyFilesChnagedAfter"),
      Published<&TCustomXCopyAction::Verify>("Verify"),
      Published<&TCustomXCopyAction::IgnoreErrors>("IgnoreErrors"),
      Published<&TCustomXCopyAction::ChangedAfterDate>("ChangedAfterDate").Varies(),
      Published<&TCustomXCopyAction::CopyOwnershipAndACL>("CopyOwnershipAndACL"),
      Published<&TCustomXCopyAction::CopyFileAuditSettings>("CopyFileAuditSettings"),
      Published<&TCustomXCopyAction::CopyEncryptedIfNotSupportedInDest>("CopyEncryptedIfNotSupportedInDest"),
  };
};
