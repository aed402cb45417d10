#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "vekcoreapi_export.h"

/// Text is UTF-8 in std::string throughout. File names may hold bytes that are not UTF-8; every routine
/// here passes such bytes through unchanged.

using StringList = std::vector<std::string>;

/// The text without leading and trailing blanks and control characters (every byte up to 0x20).
VEK_API std::string_view Trim(std::string_view text);

/// The upper-case form of one Unicode code point (simple, one-to-one mapping).
VEK_API char32_t UpCase(char32_t codePoint);

/// The text with every character in upper case; bytes that are not UTF-8 stay as they are.
VEK_API std::string UpCase(std::string_view text);

/// Equal without regard to case.
VEK_API bool SameText(std::string_view a, std::string_view b);

/// Orders by upper-cased text, as file names and variable names are ordered; texts that differ in case only
/// are equal.
struct LessNoCase {
  using is_transparent = void;
  VEK_API bool operator()(std::string_view a, std::string_view b) const;
};

/// Decodes the code point at `position` and moves past it. A byte that is not UTF-8 comes back as
/// kInvalidByte + byte.
inline constexpr char32_t kInvalidByte = 0x110000;
VEK_API char32_t NextCodePoint(std::string_view text, size_t& position);
VEK_API void AppendUtf8(std::string& text, char32_t codePoint);
VEK_API bool IsUtf8(std::string_view text);

/// How many characters the text has; a byte that is not UTF-8 counts as one.
VEK_API size_t CharacterCount(std::string_view text);
VEK_API bool IsAscii(std::string_view text);

/// Takes the next line off the front of `rest`, without its line break (CR LF, CR or LF); false when no text
/// is left. A final line break starts no further line.
VEK_API bool TakeLine(std::string_view& rest, std::string_view& line);

/// Splits at CR LF, CR or LF; a final line break starts no further line.
VEK_API StringList SplitLines(std::string_view text);

/// The lines with `separator` between them, and that taken apart again; an empty text has no lines.
VEK_API std::string JoinLines(const StringList& lines, std::string_view separator);
VEK_API StringList SplitAt(std::string_view text, std::string_view separator);

/// Every occurrence of `from` replaced, left to right; `from` must not be empty.
VEK_API std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);
