#include "process/VekCloseProcessAction.h"

#include <charconv>

#include "platform/Platform.h"

namespace {

// Stands for what is no number, and is refused when it is typed as well.
constexpr int32_t kNoProcess = 99999999;

constexpr uint32_t kRoundMilliseconds = 100;
constexpr int64_t kRoundsPerSecond = 10;

int32_t ToProcessId(std::string_view text) {
  text = Trim(text);
  int32_t number = kNoProcess;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end ? number : kNoProcess;
}

}  // namespace

const ActionClass TCustomVekCloseProcessAction::kClass{.inherited = &TVekAction::kClass,
                                                       .className = "TCustomVekCloseProcessAction",
                                                       .actionName = "Close Process",
                                                       .helpTopicID = 5550,
                                                       .quickHelpFilename = "Plugins\\CloseProcess.html"};

bool TCustomVekCloseProcessAction::Execute() {
  if (!ReadProcessId()) return false;
  SendMessage("Closing Process with ID " + std::to_string(processIdInt_));
  ProcessWindows& windows = *GetPlatform().windows;
  const auto window = windows.FindMainWindow(processIdInt_);
  if (!window) {
    SendMessage("A window handle for the desired process ID could not be found.");
    return false;
  }
  const auto process = windows.OpenProcess(processIdInt_);
  SendMessage(SendWMClose ? "Sending main window a WM_CLOSE message"
                          : "Sending main window a WM_QUIT message");
  windows.Post(*window, SendWMClose ? WindowMessage::Close : WindowMessage::Quit);
  // A process that is out of reach counts as one that has ended.
  return !Timeout || !process || AwaitEnd(*process);
}

bool TCustomVekCloseProcessAction::ReadProcessId() {
  std::string text;
  if (!TryExpandExpression("ProcessID", ProcessID, text, true)) return false;
  const int32_t number = ToProcessId(text);
  processIdInt_ = static_cast<uint32_t>(number);
  if (number != kNoProcess) return true;
  SendMessage("Invalid Process ID : " + std::to_string(number));
  return false;
}

bool TCustomVekCloseProcessAction::AwaitEnd(RunningProcess& process) {
  const int64_t limit = TimeoutLimit * kRoundsPerSecond;
  for (int64_t round = 1; !process.EndsWithin(kRoundMilliseconds); ++round) {
    if (round > limit) {
      SendMessage("Timed out waiting for process to close. Terminating process.");
      process.Terminate();
      return true;
    }
    if (StopSignalled()) return false;
  }
  return true;
}
