#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "coreapi/Vekactionapi.h"
#include "forms/Vekpluginapi.h"
#include "forms/Vekpropertyeditors.h"

/// Rows of the package's registration tables, made so that a wrong row does not compile.

/// One step of registration: an action type with its pages, or what stands between two action types.
struct CatalogueRow {
  std::string_view typeId = {};
  std::string_view displayName = {};  // empty: what the class calls itself
  std::string_view category = {};
  const ActionClass& (*actionClass)() = nullptr;
  std::span<const PageClass* const> pages = {};
  void (*routine)(bool designTime) = nullptr;
  void (*pageRoutine)() = nullptr;  // runs between the pages of its neighbours
};

/// One property editor; an empty property name means every property of the type.
struct EditorRow {
  std::string_view propertyType;
  const ActionClass& (*actionClass)();
  std::string_view propertyName;
  const EditorClass* editor;
};

template <class... Pages>
inline constexpr std::array<const PageClass*, sizeof...(Pages)> kPages{&kPageClass<Pages>...};

/// The display name of a row whose class answers it.
inline constexpr std::string_view kOwnName{};

template <class Action, class... Pages>
consteval CatalogueRow ActionRow(std::string_view typeId, std::string_view displayName,
                                 std::string_view category) {
  static_assert(std::is_base_of_v<TCustomVekAction, Action>, "a catalogue row takes an action class");
  static_assert(
      requires { Action::kClassName; }, "a catalogue row takes the published class");
  static_assert(property_detail::HasUniqueNames<Action>(), "two properties of the class have one name");
  static_assert((std::is_base_of_v<TFrame, Pages> && ...), "what follows the action class are its pages");
  static_assert((std::is_base_of_v<typename Pages::EditedAction, Action> && ...),
                "one of the pages edits another action");
  if (typeId.empty() || category.empty()) throw "an action type has a type id and a category";
  return {.typeId = typeId,
          .displayName = displayName,
          .category = category,
          .actionClass = &Action::Class,
          .pages = kPages<Pages...>};
}

consteval CatalogueRow RoutineRow(void (*routine)(bool designTime)) { return {.routine = routine}; }
consteval CatalogueRow PageRoutineRow(void (*routine)()) { return {.pageRoutine = routine}; }

template <size_t N>
consteval bool HasUniqueTypeIds(const CatalogueRow (&rows)[N]) {
  for (const CatalogueRow& row : rows) {
    const auto isSame = [&row](const CatalogueRow& other) { return other.typeId == row.typeId; };
    if (!row.typeId.empty() && std::ranges::count_if(rows, isSame) > 1) return false;
  }
  return true;
}

/// Whether the class has a property of that name and type; without a name, of that type.
template <class Action>
consteval bool HasProperty(std::string_view type, std::string_view name) {
  const PropertyRow& found = property_detail::FirstRow<Action>([&](const PropertyRow& row) {
    return row.published && row.TypeName() == type && (name.empty() || row.name == name);
  });
  return !found.name.empty();
}

template <class Action>
const ActionClass& ClassOf() {
  if constexpr (requires { Action::Class(); }) {
    return Action::Class();
  } else {
    return Action::kClass;  // a logic class: its editors are those of every class below it
  }
}

template <class Action>
consteval EditorRow PropertyEditor(std::string_view propertyType, std::string_view propertyName,
                                   const EditorClass& editor) {
  if (!HasProperty<Action>(propertyType, propertyName)) throw "the class has no such property of this type";
  return {propertyType, &ClassOf<Action>, propertyName, &editor};
}

/// A row that is wanted although it applies to nothing.
template <class Action>
consteval EditorRow IdlePropertyEditor(std::string_view propertyType, std::string_view propertyName,
                                       const EditorClass& editor) {
  if (HasProperty<Action>(propertyType, propertyName)) throw "this row applies: it is no idle one";
  return {propertyType, &ClassOf<Action>, propertyName, &editor};
}

/// What stands in the tables, made known to the host in their order.
void RegisterActions(std::span<const CatalogueRow> rows, bool designTime);
void RegisterPages(std::span<const CatalogueRow> rows);
void RegisterEditors(std::span<const EditorRow> rows);
