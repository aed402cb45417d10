#include "platform/posix/shell/PosixShell.h"

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "base/Parameters.h"
#include "platform/posix/processes/PosixProcessCommand.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

/// Programs for a verb, of which the first that is there is taken; the file comes last.
const struct {
  std::string_view verb;
  std::vector<StringList> programs;
} kHandlers[] = {
    {"open", {{"xdg-open"}, {"gio", "open"}}},
    {"print", {{"lp"}, {"lpr"}}},
};

/// The commands that the user has for text files.
std::vector<StringList> Editors() {
  std::vector<StringList> editors;
  for (const char* name : {"VISUAL", "EDITOR"}) {
    const char* value = std::getenv(name);
    const StringList command = SplitParameters(value != nullptr ? value : "");
    if (!command.empty()) editors.push_back(command);
  }
  return editors;
}

std::vector<StringList> HandlersOf(const std::string& verb) {
  if (SameText(verb, "edit")) return Editors();
  for (const auto& handler : kHandlers) {
    if (SameText(handler.verb, verb.empty() ? "open" : verb)) return handler.programs;
  }
  return {};
}

/// What runs by itself: many file systems mark every file as executable, so the mark alone says little.
bool IsProgram(const std::string& file) {
  constexpr std::string_view kElf = "\177ELF", kScript = "#!", kWindows = "MZ";
  char header[4] = {};
  const UniqueFd fd(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  const ssize_t size = fd ? read(fd.Get(), header, sizeof header) : -1;
  const bool marked = access(file.c_str(), X_OK) == 0;
  // One that may be run and not be read is taken at its word.
  if (size < 0) return marked;
  const std::string_view start(header, static_cast<size_t>(size));
  return start.starts_with(kWindows) || (marked && (start.starts_with(kElf) || start.starts_with(kScript)));
}

}  // namespace

SysResult PosixShell::Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) {
  std::string file;
  const SysResult found = paths_.OnEntry(request.file, [&file](const Place& place) {
    file = FileAt(place);
    return faccessat(place.Fd(), place.Name(), F_OK, 0) == 0 ? SysResult() : LastFailure();
  });
  if (!found) return found;
  ProcessCommand command;
  if (const SysResult result = FindHandler(request, file, command); !result) return result;
  command.announce = request.announce;
  return processes_.StartWatched(std::move(command), request.folder, process);
}

SysResult PosixShell::FindHandler(const ShellRequest& request, const std::string& file,
                                  ProcessCommand& command) {
  // Nobody is there to be asked for another user's password.
  if (SameText(request.verb, "runas")) return SysResult::Failure(Win32Error::AccessDenied);
  const bool opens = request.verb.empty() || SameText(request.verb, "open");
  if (opens && IsProgram(file)) return FindCommand(paths_, file, request.parameters, command);
  for (const StringList& handler : HandlersOf(request.verb)) {
    if (!FindCommand(paths_, handler.front(), "", command)) continue;
    command.arguments.insert(command.arguments.end(), handler.begin() + 1, handler.end());
    command.arguments.push_back(file);
    return {};
  }
  return SysResult::Failure(Win32Error::NoAssociation);
}
