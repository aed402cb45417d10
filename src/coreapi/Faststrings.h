#pragma once

#include <string>
#include <string_view>

#include "coreapi/Vekproperties.h"
#include "vekcoreapi_export.h"

enum class TReplaceFlag { rfReplaceAll, rfIgnoreCase };
using TReplaceFlags = SetOf<TReplaceFlag>;

/// The text with the first occurrence of `oldText` replaced, or every one with rfReplaceAll. What was put in
/// is not searched again; an empty `oldText` occurs nowhere.
VEK_API std::string FastAnsiReplace(std::string_view text, std::string_view oldText, std::string_view newText,
                                    TReplaceFlags flags);
