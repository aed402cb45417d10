#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Text at the border to the wide API. A file name may hold half of a surrogate pair; it comes in as the
/// three bytes that UTF-8 would give it and goes out as the same name.
std::string FromWide(std::wstring_view text);

/// Nothing for bytes that stand for no text; a name made of them must not become another file's.
std::optional<std::wstring> ToWide(std::string_view text);

/// The same for text that is shown: bytes that stand for nothing become U+FFFD.
std::wstring ToWideShown(std::string_view text);
