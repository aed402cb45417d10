#pragma once

#include <memory>
#include <string>

#include "base/Win32Error.h"
#include "platform/Processes.h"
#include "platform/RunningProcess.h"

struct ShellRequest {
  std::string verb = {};        // "open", "print", "edit", ... in any case; empty: what a double click does
  std::string file = {};        // a document or a program
  std::string parameters = {};  // for a program
  std::string folder = {};      // to start in; empty: the current one
  ProcessAnnouncement announce = {};
};

/// Acts on documents as the user's desktop does.
class Shell {
 public:
  virtual ~Shell() = default;

  /// Starts what acts on the file and answers in `process` what was started, null when the system does not
  /// tell. NoAssociation when nothing is there for such a file or verb.
  virtual SysResult Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) = 0;
};
