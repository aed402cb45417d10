#pragma once

#include <string>
#include <string_view>

#include "base/Text.h"
#include "platform/Processes.h"
#include "platform/posix/paths/PosixPaths.h"

/// What the system is to run: a file, and the arguments, which begin with the program's name.
struct ProcessCommand {
  std::string file;
  StringList arguments;
  ProcessAnnouncement announce = {};
};

/// The arguments as one would type them into a shell.
std::string CommandText(const ProcessCommand& command);

/// The full native name of an entry.
std::string FileAt(const Place& place);

/// Finds the program and splits its parameters. A shell that is given "/c COMMAND" gets the command as it
/// stands.
SysResult FindCommand(PosixPaths& paths, const std::string& program, const std::string& parameters,
                      ProcessCommand& command);

/// After the system refused to run the file with this errno value: has Wine run a Windows program, and the
/// shell a script that does not say what runs it. Fails for what nothing runs.
SysResult FindInterpreter(int error, ProcessCommand& command);
