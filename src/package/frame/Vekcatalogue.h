#pragma once

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
      requires { Action::kPublished; }, "a catalogue row takes the published class");
  static_assert((std::is_base_of_v<TFrame, Pages> && ...), "what follows the action class are its pages");
  if (typeId.empty() || category.empty()) throw "an action type has a type id and a category";
  return {.typeId = typeId,
          .displayName = displayName,
          .category = category,
          .actionClass = &Action::Class,
          .pages = kPages<Pages...>};
}

consteval CatalogueRow RoutineRow(void (*routine)(bool designTime)) { return {.routine = routine}; }
consteval CatalogueRow PageRoutineRow(void (*routine)()) { return {.pageRoutine = routine}; }

template <class Action, class Editor>
consteval EditorRow PropertyEditor(std::string_view propertyType, std::string_view propertyName) {
  static_assert(std::is_base_of_v<TPropertyEditor, Editor>, "an editor row takes an editor class");
  return {propertyType, &Action::Class, propertyName, &kEditorClass<Editor>};
}
