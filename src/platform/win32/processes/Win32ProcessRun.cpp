#include "platform/win32/processes/Win32ProcessRun.h"

#include <algorithm>

namespace {

constexpr ULONGLONG kGrace = 5000;

// After which a process that was terminated is the system's business.
constexpr ULONGLONG kForcedEnd = 1000;

// Between two looks at what cannot be waited for.
constexpr DWORD kLook = 10;

bool IsSignalled(HANDLE handle) { return WaitForSingleObject(handle, 0) == WAIT_OBJECT_0; }

}  // namespace

Win32ProcessRun::~Win32ProcessRun() {
  if (done_) return;
  Terminate();
  WaitForSingleObject(child_.process.Get(), INFINITE);
}

SysResult Win32ProcessRun::Start(const ProcessSetup& setup) {
  wake_ = OwnedUnlessNull(CreateEventW(nullptr, FALSE, FALSE, nullptr));
  if (!wake_) return LastFailure();
  ChildStreams streams;
  if (output_ != nullptr) {
    for (Win32ProcessPipe& pipe : pipes_) {
      if (const SysResult result = pipe.Open(); !result) return result;
    }
    streams = {pipes_[0].WriteEnd(), pipes_[1].WriteEnd()};
  }
  if (const SysResult result = LaunchProcess(setup, streams, child_); !result) return result;
  done_ = false;
  inJob_ = job_.Add(child_.process.Get());
  ResumeThread(child_.thread.Get());
  for (Win32ProcessPipe& pipe : pipes_) {
    pipe.CloseWriteEnd();
    if (output_ != nullptr) pipe.BeginRead();
  }
  return {};
}

int32_t Win32ProcessRun::Wait(StopEvent& stop, uint32_t timeoutSeconds) {
  if (timeoutSeconds > 0) deadline_ = GetTickCount64() + ULONGLONG{timeoutSeconds} * 1000;
  {
    const StopEvent::Watch watch(stop, [this] { SetEvent(wake_.Get()); });
    while (!Finished()) {
      WaitForSomething(stop);
      if (deadline_ != 0 && GetTickCount64() >= deadline_) GoOn();
    }
  }
  for (Win32ProcessPipe& pipe : pipes_) {
    if (output_ != nullptr) pipe.Drain(*output_);
  }
  done_ = true;
  if (phase_ != Phase::Running) return kProcessStopped;
  job_.Release();
  DWORD exitCode = 0;
  GetExitCodeProcess(child_.process.Get(), &exitCode);
  return static_cast<int32_t>(exitCode);
}

/// What the program left running is let be, unless the program was stopped.
bool Win32ProcessRun::Finished() const {
  if (!ended_) return false;
  if (phase_ == Phase::Running || !inJob_ || job_.Active() == 0) return true;
  return phase_ == Phase::Forced && GetTickCount64() >= deadline_;
}

void Win32ProcessRun::WaitForSomething(StopEvent& stop) {
  std::array<HANDLE, 4> handles{wake_.Get()};
  DWORD count = 1;
  if (!ended_) handles[count++] = child_.process.Get();
  for (const Win32ProcessPipe& pipe : pipes_) {
    if (pipe.IsReading()) handles[count++] = pipe.Ready();
  }
  const bool isWoken = WaitForMultipleObjects(count, handles.data(), FALSE, Patience()) == WAIT_OBJECT_0;
  // All of them, so that none starves.
  for (Win32ProcessPipe& pipe : pipes_) {
    if (pipe.IsReading() && IsSignalled(pipe.Ready())) pipe.Receive(*output_);
  }
  if (!ended_) ended_ = IsSignalled(child_.process.Get());
  if (isWoken && stop.Take() && phase_ == Phase::Running) GoOn();
}

/// How long to wait, in milliseconds.
DWORD Win32ProcessRun::Patience() const {
  if (ended_ || phase_ == Phase::Forced) return kLook;
  if (deadline_ == 0) return INFINITE;
  const ULONGLONG now = GetTickCount64();
  return deadline_ <= now ? 0 : static_cast<DWORD>(std::min<ULONGLONG>(deadline_ - now, 1'000'000));
}

/// To the next phase of stopping.
void Win32ProcessRun::GoOn() {
  if (phase_ == Phase::Running && job_.Ask(child_.id)) {
    phase_ = Phase::Asked;
    deadline_ = GetTickCount64() + kGrace;
    return;
  }
  if (phase_ != Phase::Forced) deadline_ = GetTickCount64() + kForcedEnd;
  phase_ = Phase::Forced;
  Terminate();
}

void Win32ProcessRun::Terminate() const {
  if (inJob_) return job_.Terminate(kProcessStopped);
  TerminateProcess(child_.process.Get(), kProcessStopped);
}
