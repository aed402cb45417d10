#pragma once

#include <string>
#include <string_view>

#include "coreapi/Vekproperties.h"

class TCustomVekAction;

/// The published property of that name, without regard to case. Raises EProjectError for an unknown property
/// (with the nearest name) and for a read-only one.
const PropertyRow& AssignableProperty(const TCustomVekAction& action, std::string_view name);

/// "\"maybe\" is not True or False"
std::string MisfitText(const PropertyRow& row, std::string_view text);

/// The value that the text stands for; raises EProjectError when it does not fit.
PropertyValue FittingValue(const PropertyRow& row, std::string_view text);
