#pragma once

#include <string_view>

#include "base/Text.h"

/// The names that a script expression reads, without those of members and those that it asks the type of.
/// Empty for an expression with names or blocks of its own, or with a slash: only an engine can tell what
/// that is.
StringList NamesReadBy(std::string_view expression);

/// The names in calls Vek.ActionByName("NAME"), without those in comments and texts.
StringList ActionsNamedIn(std::string_view script);
