#pragma once

#include <string_view>

#include "vekcoreapi_export.h"

/// Whether a file name matches a mask by the DOS rules: '*' matches any run of characters, '?' one
/// character (or nothing before a dot and at the end of the name), letter case is ignored, "*.*" matches
/// every name and a mask that ends in "*." only names without an extension.
VEK_API bool MatchesDosMask(std::string_view name, std::string_view mask);
