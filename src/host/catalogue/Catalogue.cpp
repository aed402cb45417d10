#include "host/catalogue/Catalogue.h"

#include <algorithm>

#include "base/Text.h"
#include "coreapi/Vekerrors.h"

void Catalogue::RegisterAction(std::string_view displayName, std::string_view category,
                               const ActionClass& actionClass, std::string_view typeId) {
  if (Find(typeId)) throw EVekError("action type \"" + std::string(typeId) + "\" is already registered");
  entries_.push_back(
      {std::string(typeId), std::string(displayName), std::string(category), &actionClass, {}});
}

void Catalogue::RegisterPropertyPages(const ActionClass& actionClass,
                                      std::span<const PageClass* const> pages) {
  const auto entry = std::ranges::find(entries_, &actionClass, &CatalogueEntry::actionClass);
  if (entry == entries_.end()) {
    throw EVekError("pages for the class " + std::string(actionClass.className) +
                    ", which is not registered");
  }
  entry->pages.insert(entry->pages.end(), pages.begin(), pages.end());
}

void Catalogue::RegisterPropertyEditor(std::string_view propertyType, const ActionClass& actionClass,
                                       const EditorClass& editor, std::string_view propertyName) {
  editors_.push_back({std::string(propertyType), &actionClass, &editor, std::string(propertyName)});
}

void Catalogue::RegisterScriptConstant(std::string_view name, const Variant& value) {
  constants_.emplace_back(name, value);
}

void Catalogue::RegisterScriptMethod(const ActionClass& actionClass, std::string_view name,
                                     std::string_view parameters, ScriptMethodHandler handler) {
  methods_.push_back({&actionClass, std::string(name), std::string(parameters), handler});
}

void Catalogue::RegisterScriptEnumType(const EnumType& type) {
  for (int64_t ordinal = 0; std::string_view name : type.values) constants_.emplace_back(name, ordinal++);
}

ScriptMethodHandler Catalogue::FindScriptMethod(const ActionClass& actionClass, std::string_view name) {
  for (const ActionClass* level = &actionClass; level; level = level->inherited) {
    for (const ScriptMethod& method : methods_) {
      if (method.actionClass == level && SameText(method.name, name)) return method.handler;
    }
  }
  return nullptr;
}

const CatalogueEntry* Catalogue::Find(std::string_view typeId) const {
  for (const CatalogueEntry& entry : entries_) {
    if (SameText(entry.typeId, typeId)) return &entry;
  }
  return nullptr;
}

std::vector<std::string_view> Catalogue::TypeIds() const {
  std::vector<std::string_view> ids;
  for (const CatalogueEntry& entry : entries_) ids.push_back(entry.typeId);
  return ids;
}
