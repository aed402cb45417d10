#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

#include "base/Text.h"

/// vekrun at a terminal of its own, and the user in front of it.
class Terminal {
 public:
  explicit Terminal(StringList arguments, unsigned short columns = 80);
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// Reads until the text shows, and answers what was new, line breaks as "\n"; all there is when it ends.
  std::string WaitFor(std::string_view text);
  void Type(std::string_view keys) const;

  /// Whether it shows what is typed; what it shows at once after such a change may come a moment later.
  bool Echoes() const;
  void Send(int signal) const;
  void HangUp();

  /// Waits for the end; 128 + n when signal n ended it.
  int ExitCode();

 private:
  bool ReadMore();

  int fd_ = -1;
  pid_t child_ = -1;
  std::string pending_;
};
