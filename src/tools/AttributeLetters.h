#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// The bits of attribute letters ("RASHNTCEO"); nothing when one of them is none.
std::optional<uint32_t> AttributesOfLetters(std::string_view letters);

/// Those that files of this system can have.
uint32_t KeptAttributes();
