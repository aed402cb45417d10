#pragma once

#include <string>
#include <string_view>

#include "tools/robocopy/RobocopySettings.h"

/// Job files hold parameters, a switch or an entry of a list a line; "::" begins a comment.

/// The parameters as arguments.
StringList JobArguments(std::string_view contents);

/// A job file with the same parameters.
std::string JobContents(const RobocopySettings& settings, const StringList& options);
