#pragma once

#include <string_view>

#include "base/Text.h"

/// Splits as the start-up code of Windows programs does: at blanks outside quotes; 2n backslashes before a
/// quote are n, one more makes the quote a plain character, and so does a second quote inside quotes.
VEK_API StringList SplitParameters(std::string_view parameters);
