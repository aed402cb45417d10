#pragma once

#include "base/Text.h"

class Console;
struct Platform;

/// The program xcopy: does what its arguments say and answers its exit code.
int RunXcopy(const StringList& arguments, const Platform& platform, Console& console);
