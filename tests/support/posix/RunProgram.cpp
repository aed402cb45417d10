#include "support/RunProgram.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace {

struct Pipe {
  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("pipe2");
  }
  ~Pipe() {
    CloseRead();
    CloseWrite();
  }
  void CloseRead() { Close(ends[0]); }
  void CloseWrite() { Close(ends[1]); }
  std::array<int, 2> ends{};

 private:
  static void Close(int& end) {
    if (end >= 0) close(end);
    end = -1;
  }
};

std::vector<char*> Pointers(StringList& strings) {
  std::vector<char*> pointers;
  for (std::string& text : strings) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

/// Reads once; false at the end.
bool ReadSome(int fd, std::string& text) {
  std::array<char, 65536> buffer{};
  const ssize_t count = read(fd, buffer.data(), buffer.size());
  if (count > 0) text.append(buffer.data(), static_cast<size_t>(count));
  return count > 0;
}

void ReadBoth(Pipe& out, Pipe& err, pid_t child, const ProgramSetup& setup, ProgramResult& result) {
  bool interrupted = setup.interruptAt.empty();
  while (out.ends[0] >= 0 || err.ends[0] >= 0) {
    std::array<pollfd, 2> wanted{{{out.ends[0], POLLIN, 0}, {err.ends[0], POLLIN, 0}}};
    poll(wanted.data(), wanted.size(), -1);
    if (wanted[0].revents != 0 && !ReadSome(out.ends[0], result.out)) out.CloseRead();
    if (!interrupted && result.out.find(setup.interruptAt) != std::string::npos) {
      kill(child, SIGINT);
      interrupted = true;
    }
    if (wanted[1].revents != 0 && !ReadSome(err.ends[0], result.err)) err.CloseRead();
    if (setup.closeOutputAfter != 0 && result.out.size() >= setup.closeOutputAfter) out.CloseRead();
  }
}

}  // namespace

ProgramResult RunProgram(const std::string& file, const StringList& arguments, const ProgramSetup& setup) {
  Pipe in, out, err;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in.ends[0], 0);
  posix_spawn_file_actions_adddup2(&actions, out.ends[1], 1);
  posix_spawn_file_actions_adddup2(&actions, err.ends[1], 2);
  if (!setup.folder.empty()) posix_spawn_file_actions_addchdir_np(&actions, setup.folder.c_str());

  StringList argumentList{file};
  argumentList.insert(argumentList.end(), arguments.begin(), arguments.end());
  StringList environment = setup.environment;
  for (char** entry = environ; *entry; ++entry) {
    const std::string name(*entry, std::string_view(*entry).find('=') + 1);
    const auto isGiven = [&](const std::string& given) { return given.starts_with(name); };
    if (std::ranges::none_of(setup.environment, isGiven)) environment.emplace_back(*entry);
  }
  pid_t child = -1;
  const int failed = posix_spawn(&child, file.c_str(), &actions, nullptr, Pointers(argumentList).data(),
                                 Pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) throw std::runtime_error("cannot start " + file);

  in.CloseRead(), out.CloseWrite(), err.CloseWrite();
  if (write(in.ends[1], setup.input.data(), setup.input.size()) < 0) in.CloseWrite();
  in.CloseWrite();
  ProgramResult result;
  ReadBoth(out, err, child, setup, result);
  int status = 0;
  waitpid(child, &status, 0);
  result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return result;
}

std::string DataFolderIn(const std::string& folder) { return "XDG_DATA_HOME=" + folder; }

ProgramResult RunVekrun(const StringList& arguments, const ProgramSetup& setup) {
  return RunProgram(VEK_BIN_DIR "/vekrun", arguments, setup);
}
