#pragma once

#include <span>
#include <string>
#include <string_view>

/// The line that tells best why an action failed: the last one marked as an error, else the last one.
std::string_view FailureReason(std::span<const std::string> lines);
