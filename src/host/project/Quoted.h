#pragma once

#include <span>
#include <string>
#include <string_view>

/// Text from outside made fit for a message of one line: control characters, line separators and bytes that
/// are not UTF-8 are shown escaped.
std::string OneLine(std::string_view text);

/// The same in double quotes, shortened when it is long.
std::string Quoted(std::string_view text);

/// "; did you mean \"X\"?" or nothing, for a name from outside.
std::string Suggestion(std::string_view name, std::span<const std::string_view> candidates);
