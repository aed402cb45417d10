#include "coreapi/Vekexecuteaction.h"

#include "base/WindowsPath.h"
#include "coreapi/Vekactionhost.h"
#include "platform/Entries.h"
#include "platform/Platform.h"

const ActionClass TVekExecuteAbstractAction::kClass{.inherited = &TVekAction::kClass,
                                                    .className = "TVekExecuteAbstractAction"};

TVekExecuteAbstractAction::~TVekExecuteAbstractAction() = default;

bool TVekExecuteAbstractAction::CanTerminate() const { return true; }
void TVekExecuteAbstractAction::TerminateAction() { stop_.Signal(); }

std::string TVekExecuteAbstractAction::GetStartingDir() { return {}; }
void TVekExecuteAbstractAction::BeforeExecute(ICommandLineBuilder& /*builder*/) {}

void TVekExecuteAbstractAction::OnProcessOutput(std::span<const std::string_view> lines) {
  for (const std::string_view line : lines) SendMessage(line);
}

bool TVekExecuteAbstractAction::InterpretResult(int32_t exitCode) {
  if (exitCode != 0) SendMessage("Program returned code  : " + std::to_string(exitCode));
  return exitCode == 0;
}

bool TVekExecuteAbstractAction::Execute() {
  // In this order: a stop that comes first is seen by the second, a later one by the program's run.
  stop_.Reset();
  if (StopSignalled()) return false;
  const std::string executable(Trim(GetExecutable()));
  if (!FindExecutable(executable)) return false;
  const auto builder = CreateCommandLineBuilder();
  if (!GetCommandLine(*builder)) return false;
  const std::string startingDir(Trim(GetStartingDir()));
  BeforeExecute(*builder);
  int32_t exitCode = 0;
  try {
    exitCode = RunExecutable(executable, builder->CommandLineText(), startingDir);
  } catch (const EVekError& error) {
    GetActionContext().ReportError(std::string("Cannot start the program: ") + error.what());
    return false;
  }
  const bool succeeded = InterpretResult(exitCode);
  if (exitCode != kProcessStopped) return succeeded;
  SendMessage("Terminated by user");
  return false;
}

/// Reports what is missing.
bool TVekExecuteAbstractAction::FindExecutable(const std::string& executable) const {
  if (executable.empty()) {
    GetActionContext().ReportError("The program to execute has not been set");
    return false;
  }
  if (!requiresFile || GetPlatform().entries->FileExists(executable)) return true;
  GetActionContext().ReportError("The program to execute does not exist: " + executable);
  return false;
}

int32_t TVekExecuteAbstractAction::RunExecutable(const std::string& executable, const std::string& parameters,
                                                 const std::string& startingDir) {
  const auto process = CreateVekProcess(GetPlatform());
  process->SetProgramFile(executable);
  process->SetParameters(parameters);
  process->SetStartDirectory(startingDir);
  process->SetHideWindow(hidesWindow);
  process->SetStopEvent(&stop_);
  process->SetDeliverEmptyLines(!skipsEmptyLines);
  process->SetEventSink(this);
  return process->Run();
}

void TVekExecuteAbstractAction::OnStdOutData(IVekProcess& /*process*/, std::string_view data) {
  OnProcessOutput({&data, 1});
}

void TVekExecuteAbstractAction::OnStdErrData(IVekProcess& /*process*/, std::string_view data) {
  OnProcessOutput({&data, 1});
}
