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
      Published<&TCustomXCopyAction::Source>("Source", TextRole::Wildcard)
          .Means("The file or folder to copy; wildcards (*, ?) may be used"),
      Published<&TCustomXCopyAction::Destination>("Destination", TextRole::Folder)
          .Means("The folder to copy into"),
      Published<&TCustomXCopyAction::ExcludeFiles>("ExcludeFiles")
          .Means("Leave out paths that hold one of these texts; no wildcards (/EXCLUDE)"),
      Published<&TCustomXCopyAction::XCopyMode>("XCopyMode")
          .Means("The files alone, sub-folders too (/S), a list only (/L), or folders without files (/T)"),
      Published<&TCustomXCopyAction::XCopyLogMode>("XCopyLogMode")
          .Means("File names, nothing (/Q), or full names of source and destination (/F)"),
      Published<&TCustomXCopyAction::OnlyArchiveFiles>("OnlyArchiveFiles")
          .Means("Copy only files with the archive attribute (/A)"),
      Published<&TCustomXCopyAction::TurnOffArchiveBit>("TurnOffArchiveBit")
          .Means("Together with OnlyArchiveFiles: clear it in the source (/M)"),
      Published<&TCustomXCopyAction::CopyHiddenAndSys>("CopyHiddenAndSys")
          .Means("Copy hidden and system files too (/H)"),
      Published<&TCustomXCopyAction::OverwriteReadOnly>("OverwriteReadOnly")
          .Means("Overwrite read-only files (/R)"),
      Published<&TCustomXCopyAction::CopyAttributes>("CopyAttributes")
          .Means("Keep the read-only attribute (/K)"),
      Published<&TCustomXCopyAction::OnlyFilesThatAlreadyExist>("OnlyFilesThatAlreadyExist")
          .Means("Copy only files that the destination has (/U)"),
      Published<&TCustomXCopyAction::CopyUsingShortNames>("CopyUsingShortNames")
          .Means("Create files with names of eight and three characters (/N)"),
      Published<&TCustomXCopyAction::CopyNetworkedFiles>("CopyNetworkedFiles")
          .Means("Copy so that an interrupted copy can be resumed (/Z)"),
      Published<&TCustomXCopyAction::CopyNewerFiles>("CopyNewerFiles")
          .Means("Copy only files that are newer than in the destination (/D)"),
      Published<&TCustomXCopyAction::CopyFilesChnagedAfter>("CopyFilesChnagedAfter")
          .Means("Copy only files changed on or after ChangedAfterDate (/D:)"),
      Published<&TCustomXCopyAction::Verify>("Verify").Means("Check each file after copying it (/V)"),
      Published<&TCustomXCopyAction::IgnoreErrors>("IgnoreErrors").Means("Go on after an error (/C)"),
      Published<&TCustomXCopyAction::ChangedAfterDate>("ChangedAfterDate").Varies().Means("That date"),
      Published<&TCustomXCopyAction::CopyOwnershipAndACL>("CopyOwnershipAndACL")
          .Means("Copy owner and access rights (/O)"),
      Published<&TCustomXCopyAction::CopyFileAuditSettings>("CopyFileAuditSettings")
          .Means("Copy audit settings too (/X)"),
      Published<&TCustomXCopyAction::CopyEncryptedIfNotSupportedInDest>("CopyEncryptedIfNotSupportedInDest")
          .Means("Copy encrypted files to where there is no encryption (/G)"),
  };
};
