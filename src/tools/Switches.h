#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/Text.h"

/// What follows a switch: nothing, a colon and a value, perhaps a value, or arguments up to the next switch.
enum class SwitchValue { None, Required, Optional, List };

/// A switch of a program and what becomes of it. A row without a name is a heading of the help.
template <class Settings>
struct Switch {
  std::string_view name = {};  // without the '/' and the colon
  SwitchValue takes = SwitchValue::None;
  std::string_view value = {};                                         // what the help calls it
  bool (*take)(Settings& settings, std::string_view value) = nullptr;  // false for a wrong value
  std::string_view help = {};
  std::string_view note = {};  // why it does nothing here
};

/// What is told of an argument that makes no sense.
struct SwitchError {
  std::string argument;
};

template <auto Member, class Settings>
bool On(Settings& settings, std::string_view /*value*/) {
  settings.*Member = true;
  return true;
}

template <class Settings>
bool Nothing(Settings& /*settings*/, std::string_view /*value*/) {
  return true;
}

inline std::optional<uint64_t> NumberOf(std::string_view text) {
  uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

template <auto Member, class Settings>
bool Number(Settings& settings, std::string_view value) {
  const auto number = NumberOf(value);
  if (number) settings.*Member = *number;
  return number.has_value();
}

template <auto Member, class Settings>
bool TextValue(Settings& settings, std::string_view value) {
  settings.*Member = value;
  return !value.empty();
}

template <auto Member, class Settings>
bool ListEntry(Settings& settings, std::string_view value) {
  (settings.*Member).emplace_back(value);
  return true;
}

/// Reads arguments by a table of switches. One that begins with '/' and is no switch is a path, and where no
/// path is expected an error, like everything with a '-' that is no switch.
template <class Settings>
class SwitchReader {
 public:
  using Row = Switch<Settings>;

  SwitchReader(std::span<const Row> rows, Settings& settings) : rows_(rows), settings_(settings) {}

  /// Raises SwitchError. Operands are handed to `takeOperand`, which refuses one by answering false.
  template <class TakeOperand>
  void Read(const StringList& arguments, TakeOperand takeOperand) {
    const Row* list = nullptr;
    for (const std::string& argument : arguments) {
      if (const Row* row = Find(argument)) {
        list = row->takes == SwitchValue::List ? row : nullptr;
        Take(*row, argument);
      } else if (list != nullptr) {
        TakeValue(*list, argument, argument);
        options_.push_back(argument);
      } else if (!takeOperand(argument)) {
        throw SwitchError{argument};
      }
    }
  }

  /// The row that an argument means, or null.
  const Row* Find(std::string_view argument) const {
    if (argument.size() < 2 || (argument[0] != '/' && argument[0] != '-')) return nullptr;
    const std::string_view name = argument.substr(1, argument.find(':') - 1);
    const bool hasValue = argument.find(':') != std::string_view::npos;
    for (const Row& row : rows_) {
      if (row.name.empty() || !SameText(row.name, name)) continue;
      const bool wantsValue = row.takes == SwitchValue::Required;
      if (row.takes == SwitchValue::Optional || wantsValue == hasValue) return &row;
    }
    return nullptr;
  }

  static std::string_view ValueOf(std::string_view argument) {
    const size_t colon = argument.find(':');
    return colon == std::string_view::npos ? std::string_view() : argument.substr(colon + 1);
  }

  /// The switches as they were read, with the entries of lists, and what is to be said of them.
  const StringList& Options() const { return options_; }
  const StringList& Notes() const { return notes_; }

 private:
  void Take(const Row& row, std::string_view argument) {
    const std::string_view value = ValueOf(argument);
    std::string shown = "/" + std::string(row.name);
    if (argument.find(':') != std::string_view::npos) shown.append(1, ':').append(value);
    if (row.takes != SwitchValue::List) TakeValue(row, value, argument);
    if (!row.note.empty()) notes_.push_back(shown + " : " + std::string(row.note));
    options_.push_back(std::move(shown));
  }

  void TakeValue(const Row& row, std::string_view value, std::string_view argument) {
    if (row.take != nullptr && !row.take(settings_, value)) throw SwitchError{std::string(argument)};
  }

  std::span<const Row> rows_;
  Settings& settings_;
  StringList options_, notes_;
};

/// The help of a table, a switch a line.
template <class Settings>
std::string HelpOf(std::span<const Switch<Settings>> rows) {
  constexpr size_t kColumn = 24;
  std::string text;
  for (const auto& row : rows) {
    if (row.name.empty()) {
      text.append("\n").append(row.help).append(" :\n");
      continue;
    }
    std::string name = " /" + std::string(row.name);
    if (row.takes == SwitchValue::Required) name += ':';
    if (row.takes == SwitchValue::Optional) name += "[:";
    if (row.takes == SwitchValue::List) name += ' ';
    name += row.value;
    if (row.takes == SwitchValue::Optional) name += ']';
    text += name + std::string(name.size() < kColumn ? kColumn - name.size() : 1, ' ');
    text.append(row.help);
    if (!row.note.empty()) text.append(row.help.empty() ? "here: " : "; here: ").append(row.note);
    text += '\n';
  }
  return text;
}
