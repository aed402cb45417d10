#pragma once

#include <string>
#include <string_view>

/// Any bytes as well-formed XML 1.0, for reports: markup is escaped, and what XML cannot hold (most control
/// characters, bytes that are not UTF-8) becomes U+FFFD. A reader gets every other character back, line
/// breaks included.
std::string EscapeXmlText(std::string_view text);

/// The same for a value in double quotes, whose tabs and line breaks a reader would turn into blanks.
std::string EscapeXmlAttribute(std::string_view text);
