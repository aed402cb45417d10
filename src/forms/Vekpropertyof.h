#pragma once

#include <algorithm>
#include <span>

#include "coreapi/Vekactionapi.h"

/// Property names that are looked up when a page is compiled. A control bound to a property that it cannot
/// hold does not compile, and the compiler shows one of the sentences below.

enum class PropertyFit { Fits, NoSuchName, RunTimeResult, ReadOnly, WrongType, OtherEnumeration };

/// What a control or a choice asks of its property: `kTypes`, and `kEnum` where it is tied to one
/// enumeration.
template <class Value>
struct ChoiceOf {
  static constexpr PropertyType kTypes[] = {PropertyType::Enumeration};
  static constexpr auto kEnum = property_detail::Traits<Value>::kEnum;
};
template <>
struct ChoiceOf<bool> {
  static constexpr PropertyType kTypes[] = {PropertyType::WordBool, PropertyType::Boolean};
};
template <class Member>
struct SetWith {
  static constexpr PropertyType kTypes[] = {PropertyType::Set};
  static constexpr auto kEnum = property_detail::Traits<Member>::kEnum;
};

namespace property_detail {

// Pointers are not compared here: with some sanitizers on, the compiler does not do that in constant
// expressions.

inline constexpr PropertyRow kNoRow{};

/// The first row that `matches`: of the class itself, of the classes it inherits from, of the base of every
/// action.
template <class Action, class Matches>
consteval const PropertyRow& FirstRow(Matches matches) {
  if constexpr (requires { Action::kPublished; }) {
    for (const PropertyRow& row : Action::kPublished) {
      if (matches(row)) return row;
    }
  }
  if constexpr (requires { typename Action::PublishedBase; }) {
    return FirstRow<typename Action::PublishedBase>(matches);
  } else {
    if constexpr (std::is_base_of_v<TCustomVekAction, Action>) {
      for (const PropertyRow& row : BaseRows(static_cast<const Action*>(nullptr))) {
        if (matches(row)) return row;
      }
      for (const PropertyRow& row : kVekActionProperties) {
        if (matches(row)) return row;
      }
    }
    return kNoRow;
  }
}

/// The row of that name. Of a logic class that has several published ones, pages find the rows that all of
/// them publish under `kSharedRows`.
template <class Action>
consteval const PropertyRow& FindRow(std::string_view name) {
  if constexpr (requires { Action::kSharedRows; }) {
    for (const PropertyRow& row : Action::kSharedRows) {
      if (row.name == name) return row;
    }
  }
  return FirstRow<Action>([name](const PropertyRow& row) { return row.name == name; });
}

constexpr char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
}

/// Whether no two properties of the class have one name, letter case aside; those of the host's bases count.
/// Rows that a class takes over from its logic class stand in both, so these are not held against each other.
template <class Action>
consteval bool HasUniqueNames() {
  const std::span<const PropertyRow> own = Action::kPublished;
  const auto count = [](std::span<const PropertyRow> rows, std::string_view name) {
    return std::ranges::count_if(rows, [name](const PropertyRow& row) {
      return std::ranges::equal(row.name, name, {}, Lower, Lower);
    });
  };
  return std::ranges::all_of(own, [&](const PropertyRow& row) {
    return count(own, row.name) == 1 && count(kVekActionProperties, row.name) == 0 &&
           count(BaseRows(static_cast<const Action*>(nullptr)), row.name) == 0;
  });
}

template <class Demand>
consteval PropertyFit FitOf(const PropertyRow& row) {
  if (row.name.empty()) return PropertyFit::NoSuchName;
  if (!row.published) return PropertyFit::RunTimeResult;
  if (row.readOnly) return PropertyFit::ReadOnly;
  bool fits = false;
  for (PropertyType type : Demand::kTypes) fits = fits || row.type == type;
  if (!fits) return PropertyFit::WrongType;
  if constexpr (requires { Demand::kEnum; }) {
    if (row.enumType().name != Demand::kEnum().name) return PropertyFit::OtherEnumeration;
  }
  return PropertyFit::Fits;
}

consteval void Require(PropertyFit fit) {
  if (fit == PropertyFit::NoSuchName) throw "the action publishes no property of this name";
  if (fit == PropertyFit::RunTimeResult) throw "this property is a result of the run and cannot be edited";
  if (fit == PropertyFit::ReadOnly) throw "this property is read-only";
  if (fit == PropertyFit::WrongType) throw "this control cannot hold a property of this type";
  if (fit == PropertyFit::OtherEnumeration) throw "this value is not of the property's enumeration";
}

}  // namespace property_detail

/// The name of a property of `Action` that meets the demand, written as a plain literal where a page binds
/// a control.
template <class Action, class Demand>
class PropertyOf {
 public:
  constexpr PropertyOf() = default;       // of a control that is bound to none
  consteval PropertyOf(const char* name)  // NOLINT(google-explicit-constructor)
      : row_(&property_detail::FindRow<Action>(name)) {
    property_detail::Require(Check(name));
  }
  static consteval PropertyFit Check(const char* name) {
    return property_detail::FitOf<Demand>(property_detail::FindRow<Action>(name));
  }
  constexpr const PropertyRow* Row() const { return row_; }

 private:
  const PropertyRow* row_ = nullptr;
};
