#pragma once

#include <memory>

#include "platform/OpenFile.h"
#include "platform/win32/system/Win32Api.h"

/// A file that is open already.
std::unique_ptr<class OpenFile> TakeOpen(Handle file);
