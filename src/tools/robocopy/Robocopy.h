#pragma once

#include "base/Text.h"

class Console;
struct Platform;

/// The program robocopy: does what its arguments say and answers its exit code.
int RunRobocopy(const StringList& arguments, const Platform& platform, Console& console);
