#pragma once

#include <functional>
#include <string_view>

#include "base/Win32Error.h"

struct Platform;

/// Answers whether the build is to stop, which ends the reading of a file with RequestAborted.
using StopQuestion = std::function<bool()>;

/// Hands over a file from its beginning to its end in blocks of a fixed size. Nobody may write it meanwhile.
SysResult ReadBlocks(const Platform& platform, std::string_view fileName, const StopQuestion& stopSignalled,
                     const std::function<void(std::string_view block)>& take);
