#pragma once

#include <string>
#include <string_view>

/// Text at the border of the script engine, which keeps characters beyond the first plane as surrogate pairs,
/// each half encoded by itself. A byte that is not UTF-8 enters as the lone surrogate U+DC00 + byte and
/// becomes that byte again on the way out; every other lone surrogate comes out as U+FFFD.
std::string ToEngineText(std::string_view text);
std::string FromEngineText(std::string_view text);
