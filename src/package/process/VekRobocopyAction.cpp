#include "process/VekRobocopyAction.h"

#include "base/WindowsPath.h"
#include "platform/Entries.h"
#include "platform/Platform.h"
#include "process/VekRobocopyOptions.h"
#include "process/VekSwitches.h"

namespace {

constexpr Switch<TVekRobocopyAction> kLogSwitches[] = {
    {&TVekRobocopyAction::SuppressFileDirSizes, "/NS"},
    {&TVekRobocopyAction::DisableLoggingJobHeader, "/NJH"},
    {&TVekRobocopyAction::DisableLoggingFileNames, "/NFL"},
    {&TVekRobocopyAction::DisableLoggingDirNames, "/NDL"},
    {&TVekRobocopyAction::DisableLoggingJobSummary, "/NJS"},
    {&TVekRobocopyAction::DisplayFileTimestamps, "/TS"},
    {&TVekRobocopyAction::SuppressFileClasses, "/NC"},
    {&TVekRobocopyAction::VerboseOutput, "/V"},
    {&TVekRobocopyAction::DisplayFullPathnames, "/FP"},
    {&TVekRobocopyAction::ReportExtraFiles, "/X"},
};

struct Outcome {
  int32_t exitCode;
  std::string_view message;
};

// Bits of their own each, but only the plain ones have a message.
constexpr Outcome kOutcomes[] = {
    {0, "Done - No changes"}, {1, "Done - Copy successful"}, {2, "Done - Extra files"},
    {4, "Done - Mismatches"}, {8, "Done - Failed Copies"},   {16, "Done - Fatal Error"},
};

constexpr int32_t kFirstFailure = 4;

}  // namespace

const ActionClass TVekRobocopyAction::kClass{.inherited = &TVekExecuteAbstractAction::kClass,
                                             .className = "TVekRobocopyAction",
                                             .actionName = "Robocopy",
                                             .helpTopicID = 3250};

TVekRobocopyAction::TVekRobocopyAction(IVekActionHost& host) : TVekExecuteAbstractAction(host) {
  hidesWindow = true;
  skipsEmptyLines = true;
  requiresFile = true;
}

bool TVekRobocopyAction::Validate(IVekActionValidationError& errors) {
  bool complete = true;
  const auto require = [&](bool met, std::string_view title, std::string_view message) {
    if (!met) errors.AddError(title, message);
    complete = complete && met;
  };
  const std::string executable = StoredRobocopyPath();
  require(!executable.empty(), "Robocopy Exe",
          "The Robocopy.exe file has not been specified in Tools->Options");
  require(GetPlatform().entries->FileExists(executable), "Robocopy Exe",
          "The Robocopy.exe file can not be found, please check location in Tools->Options");
  require(!SourceDir.empty(), "Source Directory", "The source directory must be specified");
  require(!DestDir.empty(), "Destination Directory", "The destination directory must be specified");
  return complete;
}

std::string TVekRobocopyAction::GetExecutable() { return StoredRobocopyPath(); }

bool TVekRobocopyAction::GetCommandLine(ICommandLineBuilder& builder) {
  builder.Reset(0);
  if (!AddFolder(builder, "Source Dir", SourceDir, source_)) return false;
  if (!AddFolder(builder, "Destination Dir", DestDir, destination_)) return false;
  AddSwitch(builder, "/NP");
  builder.AddArgument("/R:", std::to_string(Retries), ArgumentQuoting::AsItStands);
  builder.AddArgument("/W:", std::to_string(RetryWaitSec), ArgumentQuoting::AsItStands);
  if (!AddExtraArguments(builder)) return false;
  AddSwitches(builder, *this, kLogSwitches);
  return AddLogFile(builder);
}

/// A folder in quotes must not end in a delimiter: some programs take it for part of the quote behind it.
bool TVekRobocopyAction::AddFolder(ICommandLineBuilder& builder, std::string_view title,
                                   const std::string& folder, std::string& expanded) const {
  if (!TryExpandExpression(title, folder, expanded, true)) return false;
  const bool hasBlank = expanded.find(' ') != std::string::npos;
  builder.AddArgument("", hasBlank ? WithoutTrailingDelimiter(expanded) : expanded, ArgumentQuoting::Always);
  return true;
}

bool TVekRobocopyAction::AddExtraArguments(ICommandLineBuilder& builder) const {
  std::string expanded;
  for (size_t i = 0; i < ExtraCmdLine.size(); ++i) {
    const std::string title = "Extra Command Line line " + std::to_string(i);
    if (!TryExpandExpression(title, ExtraCmdLine[i], expanded, false)) return false;
    if (!expanded.empty()) AddSwitch(builder, expanded);
  }
  return true;
}

/// Robocopy goes on to write to the build log as well.
bool TVekRobocopyAction::AddLogFile(ICommandLineBuilder& builder) const {
  std::string expanded;
  if (!TryExpandExpression("Log file", LogFile, expanded, false)) return false;
  if (expanded.empty()) return true;
  builder.AddArgument(AppendToLogFile ? "/LOG+:" : "/LOG:", expanded, ArgumentQuoting::Always);
  AddSwitch(builder, "/TEE");
  return true;
}

void TVekRobocopyAction::BeforeExecute(ICommandLineBuilder& builder) {
  TVekExecuteAbstractAction::BeforeExecute(builder);
  SendMessage("Calling Robocopy with command line: " + builder.CommandLineText());
}

bool TVekRobocopyAction::InterpretResult(int32_t exitCode) {
  for (const Outcome& outcome : kOutcomes) {
    if (outcome.exitCode == exitCode) SendMessage(outcome.message);
  }
  return exitCode < kFirstFailure;
}

const ActionClass TCustomRobocopyJobAction::kClass{.inherited = &TVekRobocopyAction::kClass,
                                                   .className = "TCustomRobocopyJobAction",
                                                   .actionName = "Run Robocopy Job",
                                                   .quickHelpFilename = "Plugins\\RobocopyJob.html",
                                                   .raises = true};

/// The walk begins at the last line and goes up to the first: a single job file is passed, of several none,
/// and a list without lines has no last one, which is raised.
bool TCustomRobocopyJobAction::GetCommandLine(ICommandLineBuilder& builder) {
  if (!TVekRobocopyAction::GetCommandLine(builder)) return false;
  std::string expanded;
  const auto last = static_cast<std::ptrdiff_t>(JobFiles.size()) - 1;
  for (std::ptrdiff_t i = last; i <= 0; ++i) {
    if (i < 0) throw EVekError("Job Files: there is no line " + std::to_string(i));
    const auto line = static_cast<size_t>(i);
    if (!TryExpandExpression("Jobfile " + std::to_string(i), JobFiles[line], expanded, false)) return false;
    if (!expanded.empty()) builder.AddArgument("/JOB:", expanded, ArgumentQuoting::Always);
  }
  return true;
}
