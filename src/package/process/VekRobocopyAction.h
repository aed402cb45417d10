#pragma once

#include <cstdint>
#include <string>

#include "coreapi/Vekexecuteaction.h"

/// What all robocopy actions have in common: source, destination, retries and what robocopy logs. The
/// executable is the one that the options name.
class TVekRobocopyAction : public TVekExecuteAbstractAction {
 public:
  static const ActionClass kClass;
  explicit TVekRobocopyAction(IVekActionHost& host);

  std::string SourceDir, DestDir;
  int32_t Retries = 10;
  int32_t RetryWaitSec = 30;
  StringList ExtraCmdLine;  // one argument a line
  bool ReportExtraFiles = false;
  bool VerboseOutput = false;
  bool DisplayFileTimestamps = false;
  bool DisplayFullPathnames = false;
  bool SuppressFileClasses = false;
  bool SuppressFileDirSizes = false;
  bool DisableLoggingDirNames = false;
  bool DisableLoggingFileNames = false;
  bool DisableLoggingJobHeader = false;
  bool DisableLoggingJobSummary = false;
  std::string LogFile;  // robocopy's own
  bool AppendToLogFile = false;

  bool Validate(IVekActionValidationError& errors) override;

  static constexpr PropertyRow kSharedRows[] = {
      Published<&TVekRobocopyAction::SourceDir>("SourceDir", TextRole::Folder),
      Published<&TVekRobocopyAction::DestDir>("DestDir", TextRole::Folder),
      Published<&TVekRobocopyAction::Retries>("Retries"),
      Published<&TVekRobocopyAction::RetryWaitSec>("RetryWaitSec"),
      Published<&TVekRobocopyAction::ExtraCmdLine>("ExtraCmdLine"),
      Published<&TVekRobocopyAction::ReportExtraFiles>("ReportExtraFiles"),
      Published<&TVekRobocopyAction::VerboseOutput>("VerboseOutput"),
      Published<&TVekRobocopyAction::DisplayFileTimestamps>("DisplayFileTimestamps"),
      Published<&TVekRobocopyAction::DisplayFullPathnames>("DisplayFullPathnames"),
      Published<&TVekRobocopyAction::SuppressFileClasses>("SuppressFileClasses"),
      Published<&TVekRobocopyAction::SuppressFileDirSizes>("SuppressFileDirSizes"),
      Published<&TVekRobocopyAction::DisableLoggingDirNames>("DisableLoggingDirNames"),
      Published<&TVekRobocopyAction::DisableLoggingFileNames>("DisableLoggingFileNames"),
      Published<&TVekRobocopyAction::DisableLoggingJobHeader>("DisableLoggingJobHeader"),
      Published<&TVekRobocopyAction::DisableLoggingJobSummary>("DisableLoggingJobSummary"),
      Published<&TVekRobocopyAction::LogFile>("LogFile", TextRole::File),
      Published<&TVekRobocopyAction::AppendToLogFile>("AppendToLogFile"),
  };

 protected:
  std::string GetExecutable() override;
  bool GetCommandLine(ICommandLineBuilder& builder) override;
  void BeforeExecute(ICommandLineBuilder& builder) override;
  bool InterpretResult(int32_t exitCode) override;

 private:
  bool AddFolder(ICommandLineBuilder& builder, std::string_view title, const std::string& folder) const;
  bool AddExtraArguments(ICommandLineBuilder& builder) const;
  bool AddLogFile(ICommandLineBuilder& builder) const;
};

/// "Run Robocopy Job": runs what a job file says.
class TCustomRobocopyJobAction : public TVekRobocopyAction {
 public:
  static const ActionClass kClass;
  using TVekRobocopyAction::TVekRobocopyAction;

  StringList JobFiles;

 protected:
  bool GetCommandLine(ICommandLineBuilder& builder) override;
};

class TVekRobocopyJobAction final : public PublishedAction<TVekRobocopyJobAction, TCustomRobocopyJobAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekRobocopyJobAction";
  static constexpr auto kPublished =
      Extended(TVekRobocopyAction::kSharedRows,
               Published<&TCustomRobocopyJobAction::JobFiles>("JobFiles", TextRole::File));
};
