#include "support/posix/Terminal.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <pty.h>
#include <stdexcept>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

Terminal::Terminal(StringList arguments, unsigned short columns) {
  arguments.insert(arguments.begin(), VEK_BIN_DIR "/vekrun");
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const winsize size{.ws_row = 24, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
  child_ = forkpty(&fd_, nullptr, nullptr, &size);
  if (child_ < 0) throw std::runtime_error("forkpty");
  if (child_ > 0) return;
  setenv("NO_COLOR", "1", 1);
  execv(pointers[0], pointers.data());
  _exit(127);
}

Terminal::~Terminal() {
  if (child_ > 0) kill(child_, SIGKILL);
  if (child_ > 0) waitpid(child_, nullptr, 0);
  if (fd_ >= 0) close(fd_);
}

bool Terminal::ReadMore() {
  std::array<char, 4096> buffer{};
  const ssize_t count = read(fd_, buffer.data(), buffer.size());  // an error at the end
  if (count > 0) pending_.append(buffer.data(), static_cast<size_t>(count));
  return count > 0;
}

std::string Terminal::WaitFor(std::string_view text) {
  size_t at;
  while ((at = pending_.find(text)) == std::string::npos && ReadMore()) continue;
  const size_t end = at == std::string::npos ? pending_.size() : at + text.size();
  const std::string shown = ReplaceAll(pending_.substr(0, end), "\r\n", "\n");
  pending_.erase(0, end);
  return shown;
}

void Terminal::Type(std::string_view keys) const {
  while (!keys.empty()) {
    const ssize_t count = write(fd_, keys.data(), keys.size());
    if (count <= 0) throw std::runtime_error("the terminal is gone");
    keys.remove_prefix(static_cast<size_t>(count));
  }
}

bool Terminal::Echoes() const {
  termios modes{};
  tcgetattr(fd_, &modes);
  return (modes.c_lflag & ECHO) != 0;
}

void Terminal::Send(int signal) const { kill(child_, signal); }

void Terminal::HangUp() {
  close(fd_);
  fd_ = -1;
}

int Terminal::ExitCode() {
  if (fd_ >= 0) {
    while (ReadMore()) continue;
  }
  int status = 0;
  waitpid(child_, &status, 0);
  child_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
