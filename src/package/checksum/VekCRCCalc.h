#pragma once

#include <string>
#include <string_view>

#include "checksum/Vekfileblocks.h"

/// The CRC-32 of a file: "$" and eight upper-case hexadecimal digits. Raises EVekError with the system's
/// message when the file cannot be read to its end.
std::string GetCRC32(const Platform& platform, std::string_view fileName, const StopQuestion& stopSignalled);
