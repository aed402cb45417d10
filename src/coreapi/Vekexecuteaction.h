#pragma once

#include <span>

#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekactionhost.h"
#include "coreapi/Vekcommandline.h"
#include "coreapi/Vekprocess.h"

/// Base of actions that run one executable with a built command line and capture what it writes.
class VEK_API TVekExecuteAbstractAction : public TVekAction, private IVekProcessEvents {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;
  ~TVekExecuteAbstractAction() override;

  bool CanTerminate() const override;
  void TerminateAction() override;  // [any thread]

 protected:
  /// Reports a missing executable, builds the command line, calls BeforeExecute, runs the executable and
  /// answers what InterpretResult makes of its exit code. A stopped run is a failure whatever that says.
  bool Execute() final;

  // In the order in which Execute calls them.
  virtual std::string GetExecutable() = 0;
  virtual bool GetCommandLine(ICommandLineBuilder& builder) = 0;  // false ends the action with a failure
  virtual std::string GetStartingDir();                           // empty: the current folder
  virtual void BeforeExecute(ICommandLineBuilder& builder);

  /// Lines that the executable wrote, on either stream, as they come; the base logs each of them.
  virtual void OnProcessOutput(std::span<const std::string_view> lines);

  /// Whether the exit code means success; for the base 0 does, and any other is logged.
  virtual bool InterpretResult(int32_t exitCode);

  // Settings for constructors.
  bool hidesWindow = false;
  bool skipsEmptyLines = false;  // of the output
  bool requiresFile = false;     // the executable must be a file that exists: PATH is not searched

 private:
  bool FindExecutable(const std::string& executable) const;
  int32_t RunExecutable(const std::string& executable, const std::string& parameters,
                        const std::string& startingDir);
  void OnStdOutData(IVekProcess& process, std::string_view data) override;
  void BeginBurst() override { GetActionContext().HoldLog(true); }
  void EndBurst() override { GetActionContext().HoldLog(false); }
  void OnStdErrData(IVekProcess& process, std::string_view data) override;

  StopEvent stop_;
};
