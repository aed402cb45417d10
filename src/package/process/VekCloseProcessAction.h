#pragma once

#include <cstdint>
#include <string>

#include "coreapi/Vekactionapi.h"
#include "platform/ProcessWindows.h"

/// "Close Process": asks a process to end through its main window, and may end it by force.
class TCustomVekCloseProcessAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  std::string ProcessID;
  bool Timeout = false;
  int32_t TimeoutLimit = 3;  // seconds
  bool SendWMClose = false;  // else WM_QUIT

  /// The identifier that the last run was about.
  uint32_t ProcessIDInt() const { return processIdInt_; }

 protected:
  bool Execute() override;

 private:
  bool ReadProcessId();
  bool AwaitEnd(RunningProcess& process);

  uint32_t processIdInt_ = 0;
};

class TVekCloseProcessAction final
    : public PublishedAction<TVekCloseProcessAction, TCustomVekCloseProcessAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekCloseProcessAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekCloseProcessAction::ProcessID>("ProcessID"),
      Published<&TCustomVekCloseProcessAction::ProcessIDInt>("ProcessIDInt"),
      Published<&TCustomVekCloseProcessAction::Timeout>("Timeout"),
      Published<&TCustomVekCloseProcessAction::TimeoutLimit>("TimeoutLimit"),
      Published<&TCustomVekCloseProcessAction::SendWMClose>("SendWMClose"),
  };
};
