#pragma once

#include "platform/win32/system/Win32Api.h"

/// Unix time in seconds.
double UnixSeconds(const FILETIME& time);
