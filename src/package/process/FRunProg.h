#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekprocess.h"

/// "Execute Program": runs a program, waits for it or leaves it running, and brings its output into the log.
class TCustomRunProgramAction : public TVekAction, private IVekProcessEvents {
 public:
  static const ActionClass kClass;
  explicit TCustomRunProgramAction(IVekActionHost& host);

  const WideString& ProgramName() const { return programName_; }
  void SetProgramName(const WideString& value);
  WideString Params;
  WideString StartInDir;
  WordBool LogOutput = true;
  WordBool WaitForCompletion = true;
  WordBool HideWindow = true;
  int32_t SuccessRC = 0;  // the highest code that counts as success

  /// The exit code of the last run.
  int32_t ReturnCode() const { return returnCode_; }

  std::string GetDescriptionKeyValue(int32_t index) const override;
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override;
  bool Validate(IVekActionValidationError& errors) override;
  bool CanTerminate() const override { return true; }
  void TerminateAction() override { stopEvent_.Signal(); }

 protected:
  bool Execute() override;
  virtual bool GetShowCommandLine() const { return true; }
  void StoreProgramName(std::string_view value) { programName_ = WideString(std::string(value)); }

 private:
  /// What the properties expand to.
  struct CommandLine {
    std::string program, parameters, startDirectory;
  };

  bool ExpandCommandLine(CommandLine& command);
  bool Run(const CommandLine& command);
  bool RunCaptured(const CommandLine& command);
  void ShowCommandLine(const CommandLine& command) const;

  void OnStdOutData(IVekProcess& process, std::string_view data) override;
  void OnStdErrData(IVekProcess& process, std::string_view data) override;
  void BeginBurst() override { HoldLog(true); }
  void EndBurst() override { HoldLog(false); }
  void LogData(std::string_view eventName, IVekProcess& process, std::string_view data);

  WideString programName_;
  int32_t returnCode_ = 0;
  StopEvent stopEvent_;
};

class TRunProgramAction final : public PublishedAction<TRunProgramAction, TCustomRunProgramAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TRunProgramAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomRunProgramAction::ProgramName, &TCustomRunProgramAction::SetProgramName>(
          "ProgramName", TextRole::File)
          .Means("A name without a folder is looked up along PATH"),
      Published<&TCustomRunProgramAction::Params>("Params"),
      Published<&TCustomRunProgramAction::StartInDir>("StartInDir", TextRole::Folder),
      Published<&TCustomRunProgramAction::LogOutput>("LogOutput")
          .Means("Needs WaitForCompletion: without it the step fails"),
      Published<&TCustomRunProgramAction::WaitForCompletion>("WaitForCompletion"),
      Published<&TCustomRunProgramAction::HideWindow>("HideWindow"),
      Published<&TCustomRunProgramAction::SuccessRC>("SuccessRC")
          .Means("The highest return code that counts as success; one above it is a failure"),
      Published<&TCustomRunProgramAction::ReturnCode>("ReturnCode")
          .NotStored()
          .Means("The return code of the last run"),
  };
};

/// "Run DOS Command": runs one command line through the interpreter that the variable DOSCMD names.
class TCustomRunDosCMDAction : public TCustomRunProgramAction {
 public:
  static const ActionClass kClass;
  using TCustomRunProgramAction::TCustomRunProgramAction;

  /// Kept as the parameters.
  const WideString& Command() const { return Params; }
  void SetCommand(const WideString& value);

  std::string GetDescriptionKeyValue(int32_t index) const override;
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override;
  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;
  bool GetShowCommandLine() const override { return false; }
};

class TRunDosCMDAction final : public PublishedAction<TRunDosCMDAction, TCustomRunDosCMDAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TRunDosCMDAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomRunDosCMDAction::StartInDir>("StartInDir", TextRole::Folder),
      Published<&TCustomRunDosCMDAction::LogOutput>("LogOutput")
          .Means("Needs WaitForCompletion: without it the step fails"),
      Published<&TCustomRunDosCMDAction::WaitForCompletion>("WaitForCompletion"),
      Published<&TCustomRunDosCMDAction::HideWindow>("HideWindow"),
      Published<&TCustomRunDosCMDAction::SuccessRC>("SuccessRC")
          .Means("The highest return code that counts as success; one above it is a failure"),
      Published<&TCustomRunDosCMDAction::Command, &TCustomRunDosCMDAction::SetCommand>("Command"),
      Published<&TCustomRunDosCMDAction::ReturnCode>("ReturnCode")
          .NotStored()
          .Means("The return code of the last run"),
  };
};
