#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Text.h"
#include "platform/RegistryScanner.h"
#include "platform/TextEncoding.h"

/// A registry in memory as the text that registry editors export, so that a change touches one line of it and
/// comments, order and values of unknown kinds stay. Means what importing the text into an empty registry
/// gives: of several values of one name the last counts, "[-key]" and "name"=- remove what stands before.
///
/// Keys are given as paths with their root, values in the form that stands in the text (RegistryFormat.h).
class RegistryText {
 public:
  /// Takes a whole text, which may be empty; with a fault in it this holds nothing.
  std::optional<RegistryFault> Load(const std::string& contents);

  /// The bytes of the text, in the encoding in which it was loaded.
  std::string Contents() const;

  bool HasKey(std::string_view key) const;
  std::optional<std::string_view> Find(std::string_view key, std::string_view name) const;
  StringList SubKeys(std::string_view key) const;  // by name
  StringList Values(std::string_view key) const;   // as they stand in the text

  void AddKey(std::string_view key);
  void Set(std::string_view key, std::string_view name, std::string_view value);

  /// False when there is no such value.
  bool Remove(std::string_view key, std::string_view name);

  /// Makes the changes that a text without the first line tells of.
  std::optional<RegistryFault> Apply(std::string_view changes);

 private:
  struct Item {
    std::string raw;
    std::string name = {};
    size_t value = 0, valueSize = 0;  // of a value: where it stands in `raw`
  };
  /// What stands from the line of a key on; the first one before all keys.
  struct Section {
    std::vector<Item> items;
    size_t newValue = 0;  // where one more value goes
  };
  struct Position {
    size_t section, item;
    auto operator<=>(const Position&) const = default;
  };
  using Positions = std::unordered_multimap<std::string, Position>;  // by upper-cased name
  struct Key {
    std::string name;
    std::optional<size_t> section = {};  // none: known by what stands below it
    Positions values = {};
  };

  std::optional<RegistryFault> Read(std::string_view text);
  Key& KeyAt(std::string_view path);
  const Key* FindKey(std::string_view path) const;
  void RemoveKey(std::string_view path);
  size_t SectionOf(std::string_view path);
  static std::optional<Position> Last(const Key& key, std::string_view name);
  std::string_view ValueAt(Position position) const;

  TextEncoding encoding_ = TextEncoding::Plain;
  std::string lineBreak_ = "\r\n";
  std::vector<Section> sections_;
  std::map<std::string, Key> keys_;  // by Canonical
};
