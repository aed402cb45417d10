#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The version resource of a Windows program or library, 32 or 64 bit, as Microsoft's PE and COFF
/// specification and the documentation of VS_VERSIONINFO lay it out.

using VersionNumber = std::array<uint16_t, 4>;

/// "1.2.3.4"
std::string VersionText(const VersionNumber& version);

struct VersionResource {
  VersionNumber fileVersion{}, productVersion{};
  std::vector<std::pair<std::string, std::string>> strings;  // name and text, of the first translation

  /// The text of an entry, its name in any case, or null.
  const std::string* Find(std::string_view name) const;
};

/// Reads so many bytes from a position of the file; fewer where it ends or cannot be read.
using FileReader = std::function<std::string(uint64_t position, size_t count)>;

/// Nothing when the file is no such program, has no version resource, or is damaged. However it is made, no
/// more than a few hundred kilobytes are read.
std::optional<VersionResource> ReadVersionResource(const FileReader& file);
