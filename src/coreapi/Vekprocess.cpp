#include "coreapi/Vekprocess.h"

#include <string>

#include "coreapi/Vekerrors.h"
#include "coreapi/Vekscripts.h"
#include "platform/ErrorTexts.h"
#include "platform/Platform.h"

namespace {

std::string InQuotes(const std::string& text) { return '"' + text + '"'; }

/// Names what could not be used, in the system's words and with what helps.
std::string StartError(const Platform& platform, const ProcessSetup& setup, Win32Error code) {
  const bool isFolder = code == Win32Error::Directory && !setup.startDirectory.empty();
  const std::string& subject = isFolder ? setup.startDirectory : setup.program;
  std::string text = platform.errorTexts->Text(code);
  // Some of the system's texts have a place for the name.
  constexpr std::string_view kPlace = "%1";
  if (const size_t place = text.find(kPlace); place != std::string::npos) {
    text.replace(place, kPlace.size(), InQuotes(subject));
  } else {
    text = InQuotes(subject) + ": " + text;
  }
  const std::string advice = platform.processes->StartAdvice(code);
  return advice.empty() ? text : text + ' ' + advice;
}

int32_t RunOrRaise(const Platform& platform, const ProcessSetup& setup, bool wait, ProcessOutput* output,
                   StopEvent& stop) {
  int32_t exitCode = 0;
  const SysResult result =
      wait ? platform.processes->Run(setup, output, stop, exitCode) : platform.processes->Start(setup);
  if (!result) throw EVekError(StartError(platform, setup, result.code));
  return exitCode;
}

class VekProcess final : public IVekProcess, private ProcessOutput, private IVekScriptObject {
 public:
  explicit VekProcess(const Platform& platform) : platform_(platform) {}

  void SetProgramFile(std::string_view file) override { setup_.program = file; }
  void SetParameters(std::string_view parameters) override { setup_.parameters = parameters; }
  void SetStartDirectory(std::string_view folder) override { setup_.startDirectory = folder; }
  void SetHideWindow(bool hide) override { setup_.hideWindow = hide; }
  void SetWaitForCompletion(bool wait) override { wait_ = wait; }
  void SetStopEvent(StopEvent* stop) override { stop_ = stop ? stop : &ownStop_; }
  void SetTimeoutSeconds(int32_t seconds) override {
    setup_.timeoutSeconds = seconds > 0 ? static_cast<uint32_t>(seconds) : 0;
  }
  void SetCaptureOutput(bool capture) override { capture_ = capture; }
  void SetDeliverEmptyLines(bool deliver) override { deliverEmptyLines_ = deliver; }
  void SetJoinErrorOutput(bool join) override { joinErrorOutput_ = join; }
  void SetEventSink(IVekProcessEvents* events) override { events_ = events; }

  int32_t Run() override {
    return RunOrRaise(platform_, setup_, wait_, capture_ && events_ ? this : nullptr, *stop_);
  }

  IVekScriptObject& ScriptObject() override { return *this; }

 private:
  // ProcessOutput
  void OnStdOut(std::string_view line) override {
    if (deliverEmptyLines_ || !line.empty()) events_->OnStdOutData(*this, line);
  }
  void OnStdErr(std::string_view line) override {
    if (joinErrorOutput_) return OnStdOut(line);
    if (deliverEmptyLines_ || !line.empty()) events_->OnStdErrData(*this, line);
  }
  void BeginBurst() override { events_->BeginBurst(); }
  void EndBurst() override { events_->EndBurst(); }

  // IVekScriptObject
  bool GetMember(std::string_view name, Variant& value) override {
    const std::pair<std::string_view, Variant> members[] = {
        {"ProgramFile", setup_.program},
        {"Parameters", setup_.parameters},
        {"StartDirectory", setup_.startDirectory},
        {"HideWindow", setup_.hideWindow},
        {"WaitForCompletion", wait_},
    };
    for (const auto& [member, held] : members) {
      if (!SameText(member, name)) continue;
      value = held;
      return true;
    }
    return false;
  }
  bool SetMember(std::string_view name, const Variant& /*value*/) override {
    Variant value;
    if (!GetMember(name, value)) return false;
    throw EVekError("the process's " + std::string(name) + " is read-only");
  }
  bool HasMethod(std::string_view name) override { return SameText(name, "Terminate"); }
  Variant Call(std::string_view method, std::span<const Variant> /*arguments*/) override {
    if (!HasMethod(method)) throw EVekError("the process has no method \"" + std::string(method) + "\"");
    stop_->Signal();
    return {};
  }

  const Platform& platform_;
  ProcessSetup setup_;
  bool wait_ = true;
  bool capture_ = true;
  bool deliverEmptyLines_ = true;
  bool joinErrorOutput_ = false;
  StopEvent ownStop_;
  StopEvent* stop_ = &ownStop_;
  IVekProcessEvents* events_ = nullptr;
};

class LineList final : public ProcessOutput {
 public:
  explicit LineList(StringList& lines) : lines_(lines) {}
  void OnStdOut(std::string_view line) override { lines_.emplace_back(line); }
  void OnStdErr(std::string_view line) override { lines_.emplace_back(line); }

 private:
  StringList& lines_;
};

}  // namespace

std::unique_ptr<IVekProcess> CreateVekProcess(const Platform& platform) {
  return std::make_unique<VekProcess>(platform);
}

int32_t RunProcess(const Platform& platform, std::string_view program, std::string_view parameters,
                   bool hideWindow, bool waitForCompletion, std::string_view startDirectory,
                   StringList* output, StopEvent& stop) {
  const ProcessSetup setup{.program = std::string(program),
                           .parameters = std::string(parameters),
                           .startDirectory = std::string(startDirectory),
                           .hideWindow = hideWindow};
  if (!output) return RunOrRaise(platform, setup, waitForCompletion, nullptr, stop);
  LineList lines(*output);
  return RunOrRaise(platform, setup, waitForCompletion, &lines, stop);
}
