#pragma once

#include <span>
#include <string>
#include <string_view>

#include "vekcoreapi_export.h"

/// The candidate that differs least from a misspelt name without regard to case (optimal string alignment
/// distance), or nothing when none is near.
VEK_API std::string_view NearestName(std::string_view name, std::span<const std::string_view> candidates);

/// "; did you mean \"X\"?" for the nearest candidate, empty when none is near.
VEK_API std::string DidYouMean(std::string_view name, std::span<const std::string_view> candidates);
