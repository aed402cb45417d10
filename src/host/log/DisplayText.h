#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Text.h"

/// Text made fit for people's eyes and for terminals, which obey what they are sent.

/// Whether the text is made of printable ASCII characters and tabs.
bool IsPlainText(std::string_view text);

/// Appends the text with control and direction-changing characters spelled out (\x1B, \u202E) and bytes that
/// are not UTF-8 as U+FFFD, so that a file name can neither move the cursor nor disguise itself. Tabs stay.
void AppendDisplayText(std::string& out, std::string_view text);

/// The text as one line: line breaks and tabs become blanks, the rest as above.
std::string DisplayLine(std::string_view text);

/// A display line cut (in its middle, where paths differ least) or padded to exactly so many columns.
std::string FitColumns(std::string_view line, size_t columns);

/// A display line broken at blanks into lines of at most so many columns; a longer word is broken where it
/// must be.
StringList WrapColumns(std::string_view line, size_t columns);

/// "0.03 s", "12.4 s", "3 min 05 s", "2 h 00 min 09 s".
std::string ElapsedText(double seconds);

/// "1 action", "12 actions".
std::string CountText(int64_t count, std::string_view noun);
