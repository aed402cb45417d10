#pragma once

#include "base/Text.h"

class TCustomVekAction;
struct PropertyRow;

/// What a property is for, in lines: its help text, and what its row adds to that. Where it has neither, its
/// display title.
StringList PropertyMeaning(const PropertyRow& row, const TCustomVekAction& action);
