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
      Published<&TCustomVekCloseProcessAction::ProcessID>("ProcessID").Means("The number of the process"),
      Published<&TCustomVekCloseProcessAction::ProcessIDInt>("ProcessIDInt")
          .Means("The number that the last run used"),
      Published<&TCustomVekCloseProcessAction::Timeout>("Timeout").Means(
          "Wait for the process to end, and terminate it when it does not"),
      Published<&TCustomVekCloseProcessAction::TimeoutLimit>("TimeoutLimit").Means("Seconds to wait for it"),
      Published<&TCustomVekCloseProcessAction::SendWMClose>("SendWMClose")
          .Means("Ask with WM_CLOSE instead of WM_QUIT"),
  };
};
