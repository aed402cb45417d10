#include "platform/posix/processes/PosixProcessCommand.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "base/Parameters.h"
#include "base/WindowsPath.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

constexpr std::string_view kShells[] = {"sh", "bash", "dash", "zsh", "ksh", "mksh", "ash", "rbash"};
constexpr const char* kUsualPath = "/usr/local/bin:/usr/bin:/bin";

constexpr bool IsBlank(char c) { return c == ' ' || c == '\t'; }

bool HasWindowsHeader(const std::string& file) {
  const UniqueFd fd(open(file.c_str(), O_RDONLY | O_CLOEXEC));
  char header[2] = {};
  return fd && read(fd.Get(), header, sizeof header) == sizeof header && header[0] == 'M' && header[1] == 'Z';
}

/// Whether the file can be run; a Windows program need not be marked as one that can.
SysResult CheckFile(const std::string& file) {
  if (access(file.c_str(), X_OK) == 0) return {};
  const SysResult result = LastFailure();
  return result.code == Win32Error::AccessDenied && HasWindowsHeader(file) ? SysResult() : result;
}

/// An empty entry of PATH stands for the current folder, where nothing is looked up.
SysResult FindAlongPath(const std::string& name, std::string& file) {
  const char* path = std::getenv("PATH");
  std::string_view rest = path != nullptr ? path : kUsualPath;
  SysResult result = SysResult::Failure(Win32Error::FileNotFound);
  while (!rest.empty()) {
    const std::string_view folder = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(rest.size(), folder.size() + 1));
    if (folder.empty()) continue;
    file.assign(folder).append(1, '/').append(name);
    struct stat status = {};
    if (stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
    const SysResult found = CheckFile(file);
    if (found) return found;
    if (found.code == Win32Error::AccessDenied) result = found;
  }
  return result;
}

/// The program starts in a folder of its own, so its name must not depend on the current one.
void MakeAbsolute(std::string& file) {
  if (file.starts_with('/')) return;
  const std::unique_ptr<char, decltype(&std::free)> folder(getcwd(nullptr, 0), &std::free);
  if (folder) file.insert(0, 1, '/').insert(0, folder.get());
}

SysResult FindFile(PosixPaths& paths, const std::string& program, std::string& file) {
  if (program.empty()) return SysResult::Failure(Win32Error::FileNotFound);
  if (program.find('\0') != std::string::npos) return SysResult::Failure(Win32Error::InvalidName);
  const auto checkEntry = [&](const Place& place) {
    file = FileAt(place);
    return CheckFile(file);
  };
  const SysResult result =
      FolderPart(program).empty() ? FindAlongPath(program, file) : paths.OnEntry(program, checkEntry);
  MakeAbsolute(file);
  return result;
}

std::optional<std::string> ShellCommand(std::string_view program, std::string_view parameters) {
  const std::string_view name = NamePart(program);
  if (std::ranges::find(kShells, name) == std::end(kShells)) return {};
  if (!SameText(parameters.substr(0, 2), "/c")) return {};
  if (parameters.size() == 2) return "";
  if (!IsBlank(parameters[2])) return {};
  return std::string(parameters.substr(3));
}

/// As it stands where a shell leaves it so, else in single quotes.
std::string ShellQuoted(const std::string& argument) {
  constexpr std::string_view kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+./:,=@%";
  if (!argument.empty() && argument.find_first_not_of(kPlain) == std::string::npos) return argument;
  std::string quoted = "'";
  for (const char c : argument) quoted += c == '\'' ? "'\\''" : std::string(1, c);
  return quoted + '\'';
}

}  // namespace

std::string FileAt(const Place& place) {
  const std::string& folder = place.folder->path;
  std::string file = folder + (folder.ends_with('/') ? "" : "/") + place.name;
  MakeAbsolute(file);
  return file;
}

std::string CommandText(const ProcessCommand& command) {
  std::string text;
  for (const std::string& argument : command.arguments) {
    text.append(text.empty() ? "" : " ").append(ShellQuoted(argument));
  }
  return text;
}

SysResult FindCommand(PosixPaths& paths, const std::string& program, const std::string& parameters,
                      ProcessCommand& command) {
  if (parameters.find('\0') != std::string::npos) return SysResult::Failure(Win32Error::InvalidParameter);
  if (const SysResult result = FindFile(paths, program, command.file); !result) return result;
  if (auto shellCommand = ShellCommand(program, parameters)) {
    command.arguments = {command.file, "-c"};
    // Else the shell would take such a command for one of its options.
    if (shellCommand->starts_with('-') || shellCommand->starts_with('+')) command.arguments.push_back("--");
    command.arguments.push_back(*std::move(shellCommand));
  } else {
    command.arguments = SplitParameters(parameters);
    command.arguments.insert(command.arguments.begin(), command.file);
  }
  return {};
}

SysResult FindInterpreter(int error, ProcessCommand& command) {
  const SysResult refusal = SysResult::Failure(FromErrno(error));
  if (error != ENOEXEC && error != EACCES) return refusal;
  std::string interpreter = "/bin/sh";
  if (HasWindowsHeader(command.file)) {
    if (!FindAlongPath("wine", interpreter)) return SysResult::Failure(Win32Error::BadExeFormat);
    MakeAbsolute(interpreter);
  } else if (error == EACCES) {
    return refusal;
  }
  command.arguments.front() = std::exchange(command.file, std::move(interpreter));
  command.arguments.insert(command.arguments.begin(), command.file);
  return {};
}
