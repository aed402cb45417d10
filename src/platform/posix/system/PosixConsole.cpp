#include "platform/posix/system/PosixConsole.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/Processes.h"
#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/system/InterruptWatch.h"
#include "platform/posix/system/PosixErrors.h"
#include "platform/posix/system/SilentTerminal.h"

namespace {

// A terminal drops in silence what a line has beyond this, its line break included.
constexpr size_t kLongestTypedLine = 4095;

/// Opens for writing; cut off only once it is known that the file may be written.
SysResult OpenAt(const Place& place, int creation, UniqueFd& file) {
  file = UniqueFd(openat(place.Fd(), place.Name(), O_WRONLY | O_CLOEXEC | creation, 0666));
  struct stat status = {};
  if (!file || fstat(file.Get(), &status) != 0) return LastFailure();
  if (IsReadOnly(status)) return SysResult::Failure(Win32Error::AccessDenied);
  if (S_ISREG(status.st_mode) && ftruncate(file.Get(), 0) != 0) return LastFailure();
  return {};
}

}  // namespace

SysResult PosixStream::Write(std::string_view bytes) {
  return WriteAll(fd_, bytes) ? SysResult() : LastFailure();
}

bool PosixStream::CanRewrite() {
  struct stat status = {};
  return owned_ && fstat(fd_, &status) == 0 && S_ISREG(status.st_mode);
}

SysResult PosixStream::WriteAt(uint64_t position, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = pwrite(fd_, bytes.data(), bytes.size(), static_cast<off_t>(position));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return LastFailure();
    position += static_cast<uint64_t>(count);
    bytes.remove_prefix(static_cast<size_t>(count));
  }
  return {};
}

PosixConsole::PosixConsole(PosixPaths& paths) : paths_(paths), output_(STDOUT_FILENO), error_(STDERR_FILENO) {
  // A reader that went away and a file at its size limit are errors to report, not a reason to die.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

std::unique_ptr<OutputStream> PosixConsole::OpenFile(std::string_view path, SysResult& result) {
  UniqueFd file;
  result = paths_.OnEntry(path, [&](const Place& place) { return OpenAt(place, 0, file); });
  if (result.code == Win32Error::FileNotFound) {
    const Place place = paths_.Locate(path);
    result = place.folder ? OpenAt(place, O_CREAT, file) : SysResult::Failure(place.error);
  }
  return result ? std::make_unique<PosixStream>(std::move(file)) : nullptr;
}

bool PosixConsole::InputIsTerminal() { return isatty(STDIN_FILENO) != 0; }
bool PosixConsole::OutputIsTerminal() { return isatty(STDOUT_FILENO) != 0; }

OutputStream& PosixConsole::Dialog() {
  return isatty(STDERR_FILENO) == 0 && OutputIsTerminal() ? output_ : error_;
}

int PosixConsole::OutputWidth() {
  constexpr int kUsual = 80;
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO, STDIN_FILENO}) {
    winsize size = {};
    if (ioctl(stream, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  }
  return kUsual;
}

InputLine PosixConsole::ReadLine(Echo echo, StopEvent& stop) {
  const UniqueFd stopped(eventfd(0, EFD_CLOEXEC));
  const StopEvent::Watch watch(stop, [&stopped] { eventfd_write(stopped.Get(), 1); });
  std::optional<SilentTerminal> silence;
  if (echo == Echo::Off && InputIsTerminal()) silence.emplace();
  size_t end;
  while ((end = input_.find('\n')) == std::string::npos) {
    pollfd ready[] = {{STDIN_FILENO, POLLIN, 0}, {stopped.Get(), POLLIN, 0}};
    if (poll(ready, std::size(ready), -1) < 0) continue;
    if (ready[1].revents != 0) return {InputState::Stopped};
    char buffer[4096];
    const ssize_t count = read(STDIN_FILENO, buffer, sizeof buffer);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) {
      input_.clear();
      return {InputState::End};
    }
    input_.append(buffer, static_cast<size_t>(count));
  }
  return TakeLine(end);
}

InputLine PosixConsole::TakeLine(size_t end) {
  InputLine line{InputState::Line, input_.substr(0, end)};
  input_.erase(0, end + 1);
  if (end + 1 >= kLongestTypedLine && InputIsTerminal()) return {InputState::TooLong};
  if (line.text.ends_with('\r')) line.text.pop_back();
  return line;
}

std::unique_ptr<Console::InterruptGuard> PosixConsole::OnInterrupt(std::function<void()> handler) {
  return std::make_unique<InterruptWatch>(std::move(handler));
}
