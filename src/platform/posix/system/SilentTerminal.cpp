#include "platform/posix/system/SilentTerminal.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The keeper's life, between fork and exit: system calls only. It is told when all is well; otherwise the
/// pipe ends with its writer, and the terminal is put right unless another program has taken it by then.
[[noreturn]] void Keep(int pipe, const termios& before, const termios& silent) {
  setsid();  // out of reach of signals to the killed one's group
  dup2(pipe, STDOUT_FILENO);
  close_range(STDERR_FILENO, ~0U, 0);
  char word = 0;
  ssize_t count;
  do {
    count = read(STDOUT_FILENO, &word, sizeof word);
  } while (count < 0 && errno == EINTR);
  termios now = {};
  if (count == 0 && tcgetattr(STDIN_FILENO, &now) == 0 && now.c_lflag == silent.c_lflag)
    tcsetattr(STDIN_FILENO, TCSANOW, &before);
  _exit(0);
}

}  // namespace

SilentTerminal::SilentTerminal() {
  tcgetattr(STDIN_FILENO, &before_);
  silent_ = before_;
  silent_.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  silent_.c_cc[VSUSP] =
      _POSIX_VDISABLE;  // whoever it would hand the terminal to could not see what they type
  StartKeeper();
  tcsetattr(STDIN_FILENO, TCSANOW, &silent_);
}

void SilentTerminal::StartKeeper() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
  const UniqueFd readEnd(ends[0]);
  keeperPipe_ = UniqueFd(ends[1]);
  keeper_ = fork();
  if (keeper_ != 0) return;
  close(keeperPipe_.Get());
  Keep(readEnd.Get(), before_, silent_);
}

SilentTerminal::~SilentTerminal() {
  tcsetattr(STDIN_FILENO, TCSANOW, &before_);
  if (keeper_ < 0) return;
  constexpr char kAllIsWell = 1;
  [[maybe_unused]] const ssize_t sent = write(keeperPipe_.Get(), &kAllIsWell, sizeof kAllIsWell);
  while (waitpid(keeper_, nullptr, 0) < 0 && errno == EINTR) continue;
}
