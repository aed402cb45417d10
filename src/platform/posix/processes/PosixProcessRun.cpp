#include "platform/posix/processes/PosixProcessRun.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace {

constexpr auto kGrace = std::chrono::seconds(5);

// After which a process that was killed is the system's business.
constexpr auto kForcedEnd = std::chrono::seconds(1);

// Between two looks at what cannot be waited for.
constexpr int kLookMilliseconds = 20;

void Post(int event) {
  const uint64_t once = 1;
  [[maybe_unused]] const ssize_t sent = write(event, &once, sizeof once);
}

UniqueFd OpenChildEnd(pid_t child) { return UniqueFd(static_cast<int>(syscall(SYS_pidfd_open, child, 0))); }

}  // namespace

bool OutputPipes::Open() {
  for (Pipe& pipe : pipes_) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    pipe.read = UniqueFd(ends[0]);
    pipe.write = UniqueFd(ends[1]);
  }
  return true;
}

ChildStreams OutputPipes::Streams() const {
  if (!pipes_[0].write) return {};
  return {pipes_[0].write.Get(), pipes_[1].write.Get()};
}

void OutputPipes::CloseChildEnds() {
  for (Pipe& pipe : pipes_) pipe.write.Close();
}

PosixProcessRun::PosixProcessRun(pid_t child, OutputPipes& pipes, ProcessOutput* output)
    : child_(child),
      output_(output),
      session_(child),
      streams_{{{pipes.ReadEnd(0), &ProcessOutput::OnStdOut}, {pipes.ReadEnd(1), &ProcessOutput::OnStdErr}}},
      childEnd_(OpenChildEnd(child)),
      wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

PosixProcessRun::~PosixProcessRun() {
  if (reaped_) return;
  session_.Signal(SIGKILL);
  Reap();
}

int32_t PosixProcessRun::Wait(StopEvent& stop, uint32_t timeoutSeconds) {
  if (timeoutSeconds > 0) deadline_ = Clock::now() + std::chrono::seconds(timeoutSeconds);
  {
    const StopEvent::Watch watch(stop, [this] { Post(wake_.Get()); });
    while (!Finished()) {
      WaitForSomething(stop);
      if (phase_ == Phase::Forced) session_.Signal(SIGKILL);  // also who was just being started
      if (Clock::now() >= deadline_) GoOn();
    }
  }
  for (Stream& stream : streams_) Drain(stream);
  const int32_t exitCode = Reap();
  return phase_ == Phase::Running ? exitCode : kProcessStopped;
}

/// What the program left running is let be, unless the program was stopped.
bool PosixProcessRun::Finished() const {
  if (!ended_) return false;
  if (phase_ == Phase::Running || !session_.HasOthers()) return true;
  return phase_ == Phase::Forced && Clock::now() >= deadline_;
}

void PosixProcessRun::WaitForSomething(StopEvent& stop) {
  enum { kOut, kErr, kChild, kWake };
  pollfd wanted[] = {{streams_[0].pipe.Get(), POLLIN, 0},
                     {streams_[1].pipe.Get(), POLLIN, 0},
                     {ended_ ? -1 : childEnd_.Get(), POLLIN, 0},
                     {wake_.Get(), POLLIN, 0}};
  if (poll(wanted, std::size(wanted), Patience()) < 0) return;
  for (const int stream : {kOut, kErr}) {
    if (wanted[stream].revents != 0) ReadOnce(streams_[static_cast<size_t>(stream)]);
  }
  if (wanted[kChild].revents != 0 || (!childEnd_ && LookForEnd())) ended_ = true;
  if (wanted[kWake].revents == 0) return;
  uint64_t count = 0;
  [[maybe_unused]] const ssize_t taken = read(wake_.Get(), &count, sizeof count);
  if (stop.Take() && phase_ == Phase::Running) GoOn();
}

/// How long to wait, as poll counts.
int PosixProcessRun::Patience() const {
  if (ended_ || !childEnd_ || phase_ == Phase::Forced) return kLookMilliseconds;
  if (deadline_ == Clock::time_point::max()) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline_ - Clock::now()).count();
  return static_cast<int>(std::clamp<int64_t>(left, 0, 1'000'000));
}

bool PosixProcessRun::LookForEnd() const {
  siginfo_t info = {};
  return waitid(P_PID, static_cast<id_t>(child_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
         info.si_pid == child_;
}

/// To the next phase of stopping.
void PosixProcessRun::GoOn() {
  if (phase_ == Phase::Running) {
    phase_ = Phase::Asked;
    deadline_ = Clock::now() + kGrace;
    session_.Signal(SIGTERM);
    session_.Signal(SIGCONT);  // one that is suspended would not hear it
    return;
  }
  if (phase_ == Phase::Asked) deadline_ = Clock::now() + kForcedEnd;
  phase_ = Phase::Forced;
  session_.Signal(SIGKILL);
}

/// Reads what there is, and waits when there is nothing; answers the number of bytes.
size_t PosixProcessRun::ReadOnce(Stream& stream) {
  const ssize_t count = read(stream.pipe.Get(), stream.lines.Room(), OutputLines::kReadSize);
  if (count < 0 && errno == EINTR) return 0;
  if (count <= 0) {
    stream.pipe.Close();
    return 0;
  }
  const OutputBurst burst(*output_);
  stream.lines.Take(static_cast<size_t>(count),
                    [&](std::string_view line) { (output_->*stream.deliver)(line); });
  return static_cast<size_t>(count);
}

/// Reads what the program wrote before it ended. Others may hold the pipe and go on writing.
void PosixProcessRun::Drain(Stream& stream) {
  int waiting = 0;
  if (stream.pipe) ioctl(stream.pipe.Get(), FIONREAD, &waiting);
  for (auto left = static_cast<size_t>(waiting); left > 0 && stream.pipe;) {
    left -= std::min(left, ReadOnce(stream));
  }
  stream.lines.Finish([&](std::string_view line) { (output_->*stream.deliver)(line); });
}

int32_t PosixProcessRun::Reap() {
  siginfo_t info = {};
  while (waitid(P_PID, static_cast<id_t>(child_), &info, WEXITED) != 0 && errno == EINTR) {
  }
  reaped_ = true;
  return info.si_code == CLD_EXITED ? info.si_status : 128 + info.si_status;
}
