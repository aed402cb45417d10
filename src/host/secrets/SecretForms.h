#pragma once

#include <string_view>

#include "base/Text.h"

/// The forms of a text that a step makes by plain quoting: the text itself, as JSON, XML and shells' single
/// quotes hold it, percent-encoded and in Base64 (RFC 4648, also without padding and for URLs).
StringList FormsOf(std::string_view text);
