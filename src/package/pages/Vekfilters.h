#pragma once

#include <string_view>

// What the file choosers of pages offer.
inline constexpr std::string_view kAllFiles = "All Files (*.*)|*.*";
inline constexpr std::string_view kTextFiles = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";
