#include "process/FRunProg.h"

#include <limits>

namespace {

constexpr int32_t kKey = 0;  // the program, or the command

constexpr std::string_view kOutputEvents[] = {"OnStdOut", "OnStdErr"};

constexpr std::string_view kProgramAliases[] = {
    "[Program]",
    "ProgramName=Program File",
    "Params=Parameters",
    "StartInDir=Start In Directory",
    "LogOutput=Capture Output",
    "HideWindow=Hide Window",
    "WaitForCompletion=Wait For Completion",
};

constexpr std::string_view kProgramHelp[] = {
    "ProgramName=Fully qualified path to the Program File",
    "Params=Command line Parameters to pass to the program",
    "StartInDir=Start In Directory",
    "LogOutput=Capture Output and send to output panel",
    "HideWindow=Hide program's Window while running",
    "WaitForCompletion=Wait For program to terminate before continuing build. ",
};

constexpr std::string_view kProgramHidden[] = {"ReturnCode"};

constexpr std::string_view kCommandAliases[] = {
    "[Dos Command]",
    "StartInDir=Start In Directory",
    "LogOutput=Capture Output",
    "HideWindow=Hide Window",
    "Command",
    "WaitForCompletion=Wait For Completion",
    "SuccessRC=Min Success Code",
};

constexpr std::string_view kCommandHelp[] = {
    "Command=DOS Command to execute",
    "SuccessRC=Minimum return code to be considered a successfull execution",
};

// They stay hidden in a view that shows what the class inherits without publishing it.
constexpr std::string_view kCommandHidden[] = {"ProgramName", "Params"};

}  // namespace

const ActionClass TCustomRunProgramAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomRunProgramAction",
    .actionName = "Execute Program",
    .helpTopicID = 511,
    .quickHelpFilename = "Plugins\\RunProgram.html",
    .aliases = kProgramAliases,
    .help = kProgramHelp,
    .hiddenProperties = kProgramHidden,
};

TCustomRunProgramAction::TCustomRunProgramAction(IVekActionHost& host) : TVekAction(host) {
  for (std::string_view name : kOutputEvents) {
    IVekActionScriptParams& params = AddScript(name).Params();
    params.AddParameter("Action", ScriptParamKind::In);
    params.AddParameter("Process", ScriptParamKind::In);
    params.AddParameter("Data", ScriptParamKind::InOut);
  }
}

void TCustomRunProgramAction::SetProgramName(const WideString& value) {
  if (value != programName_) UpdateKeyValue(kKey, programName_, value);
}

std::string TCustomRunProgramAction::GetDescriptionKeyValue(int32_t index) const {
  return index == kKey ? std::string(programName_) : std::string();
}

void TCustomRunProgramAction::SetDescriptionKeyValue(int32_t index, std::string_view value) {
  if (index == kKey) StoreProgramName(value);
}

bool TCustomRunProgramAction::Validate(IVekActionValidationError& errors) {
  if (!programName_.empty()) return true;
  errors.AddError("Program", "The program to execute has not been set");
  return false;
}

bool TCustomRunProgramAction::Execute() {
  if (!WaitForCompletion && LogOutput) {
    SendMessage("Invalid options - to Log Output you must specify WaitForCompletion");
    return false;
  }
  // A run that never reports a code fails.
  returnCode_ = std::numeric_limits<int32_t>::max();
  CommandLine command;
  if (!ExpandCommandLine(command)) return false;

  RearmStop(stopEvent_);
  if (!(LogOutput ? RunCaptured(command) : Run(command))) return false;

  if (returnCode_ <= SuccessRC) return true;
  const auto message = CreateStatusMessage();
  message->AddLine("Program returned code  : " + std::to_string(returnCode_));
  if (returnCode_ == kProcessStopped) message->AddLine("Terminated by user");
  SendStatusMessage(message);
  return false;
}

bool TCustomRunProgramAction::ExpandCommandLine(CommandLine& command) {
  return AttemptOrReport("Unable to Execute Program  : ", command.program, "--> ", [&] {
    command.program = Trim(ExpandExpression(programName_));
    if (command.program.empty()) throw EVekError("Program file not specified");
    command.parameters = Trim(ExpandExpression(Params));
    command.startDirectory = Trim(ExpandExpression(StartInDir));
  });
}

bool TCustomRunProgramAction::Run(const CommandLine& command) {
  return AttemptOrReport("Error while trying to Execute Program  : ", command.program, "--> ", [&] {
    ShowCommandLine(command);
    returnCode_ = RunProcess(GetPlatform(), command.program, command.parameters, HideWindow,
                             WaitForCompletion, command.startDirectory, nullptr, stopEvent_);
  });
}

bool TCustomRunProgramAction::RunCaptured(const CommandLine& command) {
  try {
    const auto process = CreateVekProcess(GetPlatform());
    process->SetProgramFile(command.program);
    process->SetParameters(command.parameters);
    process->SetStartDirectory(command.startDirectory);
    process->SetHideWindow(HideWindow);
    process->SetWaitForCompletion(WaitForCompletion);
    process->SetStopEvent(&stopEvent_);
    process->SetEventSink(this);
    ShowCommandLine(command);
    returnCode_ = process->Run();
    return true;
  } catch (const std::exception& error) {
    SendMessage("Error while trying to Execute Program  : " + command.program);
    SendMessage(std::string("--> ") + error.what());
    return false;
  }
}

void TCustomRunProgramAction::ShowCommandLine(const CommandLine& command) const {
  if (!GetShowCommandLine()) return;
  SendMessage("Executing : " + command.program);
  SendMessage("With Command Line  : " + command.parameters);
}

void TCustomRunProgramAction::OnStdOutData(IVekProcess& process, std::string_view data) {
  LogData("OnStdOut", process, data);
}

void TCustomRunProgramAction::OnStdErrData(IVekProcess& process, std::string_view data) {
  LogData("OnStdErr", process, data);
}

/// Logs a piece of output as the user's script leaves it.
void TCustomRunProgramAction::LogData(std::string_view eventName, IVekProcess& process,
                                      std::string_view data) {
  // When the build is to stop scripts are interrupted, each with an error of its own.
  if (!HasScript(eventName) || StopSignalled()) return SendMessage(data);
  const bool ran = RunScript(eventName, {{"Process", &process.ScriptObject()}, {"Data", std::string(data)}});
  SendMessage(ran ? VariantToText(ScriptResult(eventName, "Data")) : std::string(data));
}

const ActionClass TCustomRunDosCMDAction::kClass{
    .inherited = &TCustomRunProgramAction::kClass,
    .className = "TCustomRunDosCMDAction",
    .actionName = "Run DOS Command",
    .helpTopicID = 512,
    .quickHelpFilename = "Plugins\\RunDosCommand.html",
    .aliases = kCommandAliases,
    .help = kCommandHelp,
    .hiddenProperties = kCommandHidden,
};

void TCustomRunDosCMDAction::SetCommand(const WideString& value) {
  if (value != Params) UpdateKeyValue(kKey, Params, value);
}

std::string TCustomRunDosCMDAction::GetDescriptionKeyValue(int32_t index) const {
  return index == kKey ? std::string(Params) : std::string();
}

void TCustomRunDosCMDAction::SetDescriptionKeyValue(int32_t index, std::string_view value) {
  if (index == kKey) Params = WideString(std::string(value));
}

bool TCustomRunDosCMDAction::Validate(IVekActionValidationError& errors) {
  if (!Params.empty()) return true;
  errors.AddError("DOS Command", "The DOS command has not been set");
  return false;
}

bool TCustomRunDosCMDAction::Execute() {
  StoreProgramName(ExpandExpression("%DOSCMD%", true));
  struct Restore {
    WideString& params;
    const WideString command = params;
    ~Restore() { params = command; }
  } const restore{Params};
  Params = WideString("/c " + restore.command);
  return TCustomRunProgramAction::Execute();
}
