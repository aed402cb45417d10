#pragma once

#include <string>
#include <string_view>

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// How the bytes of a file stand for text: told by the mark at their start. Plain is UTF-8, or bytes that are
/// taken as they stand.
enum class TextEncoding { Plain, Utf16Le, Utf16Be };

TextEncoding EncodingOf(std::string_view contents);

/// UTF-16 as UTF-8, and back, a mark included. Half a surrogate pair becomes the three bytes that UTF-8 would
/// give it, so that whatever a file holds comes back. An odd byte at the end is left out.
std::string DecodeUtf16(std::string_view bytes, TextEncoding encoding);
std::string EncodeUtf16(std::string_view text, TextEncoding encoding);
