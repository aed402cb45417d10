#pragma once

#include <string>

#include "base/Win32Error.h"

/// The system's message for an error code: each system words it in its own way.
std::string SystemText(Win32Error code);
