#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// What is to stand in the version resource of a program.
struct VersionImage {
  bool is64Bit = false;
  uint16_t file[4] = {1, 2, 3, 4}, product[4] = {5, 6, 7, 8};
  std::string translation = "040904b0";  // the one that is listed; empty: none is
  struct Table {
    std::string key;
    std::vector<std::pair<std::string, std::string>> strings;  // of characters up to U+FFFF
  };
  std::vector<Table> tables = {};
  uint32_t resourceType = 16;

  /// The smallest program file that holds it.
  std::string Bytes() const;
};
