#include "support/WineLimits.h"

bool RunsOnWine() { return false; }
