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
      Published<&TVekRobocopyAction::SourceDir>("SourceDir", TextRole::Folder)
          .Means("The folder to copy from"),
      Published<&TVekRobocopyAction::DestDir>("DestDir", TextRole::Folder).Means("The folder to copy to"),
      Published<&TVekRobocopyAction::Retries>("Retries").Means(
          "How often a file that cannot be copied is tried again (/R)"),
      Published<&TVekRobocopyAction::RetryWaitSec>("RetryWaitSec").Means("Seconds between two tries (/W)"),
      Published<&TVekRobocopyAction::ExtraCmdLine>("ExtraCmdLine").Means("Further switches, one a line"),
      Published<&TVekRobocopyAction::ReportExtraFiles>("ReportExtraFiles")
          .Means("Report what is in the destination only (/X)"),
      Published<&TVekRobocopyAction::VerboseOutput>("VerboseOutput")
          .Means("Report files that are left out too (/V)"),
      Published<&TVekRobocopyAction::DisplayFileTimestamps>("DisplayFileTimestamps")
          .Means("Show the times of source files (/TS)"),
      Published<&TVekRobocopyAction::DisplayFullPathnames>("DisplayFullPathnames")
          .Means("Show full paths (/FP)"),
      Published<&TVekRobocopyAction::SuppressFileClasses>("SuppressFileClasses")
          .Means("Log no file classes (/NC)"),
      Published<&TVekRobocopyAction::SuppressFileDirSizes>("SuppressFileDirSizes")
          .Means("Log no sizes (/NS)"),
      Published<&TVekRobocopyAction::DisableLoggingDirNames>("DisableLoggingDirNames")
          .Means("Log no folder names (/NDL)"),
      Published<&TVekRobocopyAction::DisableLoggingFileNames>("DisableLoggingFileNames")
          .Means("Log no file names (/NFL)"),
      Published<&TVekRobocopyAction::DisableLoggingJobHeader>("DisableLoggingJobHeader")
          .Means("Log no job header (/NJH)"),
      Published<&TVekRobocopyAction::DisableLoggingJobSummary>("DisableLoggingJobSummary")
          .Means("Log no job summary (/NJS)"),
      Published<&TVekRobocopyAction::LogFile>("LogFile", TextRole::File)
          .Means("A log file of robocopy's own, beside the log of the build (/LOG)"),
      Published<&TVekRobocopyAction::AppendToLogFile>("AppendToLogFile")
          .Means("Add to that file instead of overwriting it (/LOG+)"),
  };

 protected:
  std::string GetExecutable() override;
  bool GetCommandLine(ICommandLineBuilder& builder) override;
  void BeforeExecute(ICommandLineBuilder& builder) override;
  bool InterpretResult(int32_t exitCode) override;

  /// As the command line that was built last has them.
  const std::string& Source() const { return source_; }
  const std::string& Destination() const { return destination_; }

 private:
  bool AddFolder(ICommandLineBuilder& builder, std::string_view title, const std::string& folder,
                 std::string& expanded) const;
  bool AddExtraArguments(ICommandLineBuilder& builder) const;
  bool AddLogFile(ICommandLineBuilder& builder) const;

  std::string source_, destination_;
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
               Published<&TCustomRobocopyJobAction::JobFiles>("JobFiles", TextRole::File)
                   .Means("The robocopy job file to run; of several lines, only the last one counts (/JOB)"));
};
