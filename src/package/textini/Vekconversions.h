#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// A whole number of 32 bits in decimal, or in hexadecimal after "0x" or "$"; nothing for any other text.
std::optional<int32_t> StringToInteger(std::string_view text);

/// The same with 64 bits.
std::optional<int64_t> StringToInteger64(std::string_view text);

/// "true" or "false" in any case, or a number, of which 0 is false; nothing for any other text.
std::optional<bool> StringToBoolean(std::string_view text);
