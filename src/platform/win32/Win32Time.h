#pragma once

#include "platform/win32/Win32Api.h"

/// Unix time in seconds.
double UnixSeconds(const FILETIME& time);
