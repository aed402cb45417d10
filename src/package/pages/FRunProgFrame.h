#pragma once

#include "forms/Vekpluginapi.h"
#include "process/FRunProg.h"

/// What the pages of both actions have in common: output is captured only from a program that is waited for.
template <class Action>
class TRunFrame : public TActionFrame<Action> {
 public:
  using TActionFrame<Action>::TActionFrame;
  void ReadActionData(TVekAction& action) override {
    TActionFrame<Action>::ReadActionData(action);
    logOutput_->SetEnabled(waitFor_->Checked());
  }

 protected:
  void AddOptions() {
    this->Heading("Options");
    waitFor_ = &this->CheckBox("chkWaitFor", "Wait For Completion", "WaitForCompletion").OnChange([this] {
      EnableCapture();
    });
    logOutput_ = &this->CheckBox("chkLogOutput", "Capture Output", "LogOutput");
    this->CheckBox("chkHideWindow", "Hide Window", "HideWindow");
    this->Edit("txtSuccessRC", "SuccessRC").Hint("Highest return code that counts as success");
  }

 private:
  void EnableCapture() {
    if (!waitFor_->Checked()) logOutput_->SetChecked(false);
    logOutput_->SetEnabled(waitFor_->Checked());
  }

  TCheckBox* waitFor_ = nullptr;
  TCheckBox* logOutput_ = nullptr;
};

class TRunProgramFrame final : public TRunFrame<TRunProgramAction> {
 public:
  static constexpr std::string_view kClassName = "TRunProgramFrame";
  TRunProgramFrame();
};

class TRunDosCmdFrame final : public TRunFrame<TRunDosCMDAction> {
 public:
  static constexpr std::string_view kClassName = "TRunDosCmdFrame";
  TRunDosCmdFrame();
};
