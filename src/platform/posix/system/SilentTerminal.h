#pragma once

#include <sys/types.h>
#include <termios.h>

#include "platform/posix/system/UniqueFd.h"

/// While it lives the terminal at standard input does not show what is typed. A small process of its own puts
/// the terminal right when this one is killed meanwhile.
class SilentTerminal {
 public:
  SilentTerminal();
  ~SilentTerminal();
  SilentTerminal(const SilentTerminal&) = delete;
  SilentTerminal& operator=(const SilentTerminal&) = delete;

 private:
  void StartKeeper();

  termios before_ = {}, silent_ = {};
  UniqueFd keeperPipe_;
  pid_t keeper_ = -1;
};
