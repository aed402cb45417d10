#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "coreapi/Vekservices.h"

struct CatalogueEntry {
  std::string typeId;
  std::string displayName;
  std::string category;
  const ActionClass* actionClass = nullptr;
  std::vector<const PageClass*> pages;
};

struct RegisteredEditor {
  std::string propertyType;
  const ActionClass* actionClass = nullptr;
  const EditorClass* editor = nullptr;
  std::string propertyName;  // empty: every property of the type
};

/// What the loaded packages registered, in registration order.
class Catalogue final : public IVekActionServices, public IVekScriptingServices {
 public:
  void RegisterAction(std::string_view displayName, std::string_view category, const ActionClass& actionClass,
                      std::string_view typeId) override;
  void RegisterPropertyPages(const ActionClass& actionClass,
                             std::span<const PageClass* const> pages) override;
  void RegisterPropertyEditor(std::string_view propertyType, const ActionClass& actionClass,
                              const EditorClass& editor, std::string_view propertyName) override;
  void RegisterScriptConstant(std::string_view name, const Variant& value) override;
  void RegisterScriptMethod(const ActionClass& actionClass, std::string_view name,
                            std::string_view parameters, ScriptMethodHandler handler) override;
  void RegisterScriptEnumType(const EnumType& type) override;
  ScriptMethodHandler FindScriptMethod(const ActionClass& actionClass, std::string_view name) override;

  const std::vector<CatalogueEntry>& Entries() const { return entries_; }
  const std::vector<RegisteredEditor>& Editors() const { return editors_; }

  /// Every registered constant and enumeration value, in registration order, duplicates kept.
  const std::vector<std::pair<std::string, Variant>>& ScriptConstants() const { return constants_; }

  /// The entry of a type id without regard to case, or null.
  const CatalogueEntry* Find(std::string_view typeId) const;
  std::vector<std::string_view> TypeIds() const;

 private:
  struct ScriptMethod {
    const ActionClass* actionClass;
    std::string name, parameters;
    ScriptMethodHandler handler;
  };

  std::vector<CatalogueEntry> entries_;
  std::vector<RegisteredEditor> editors_;
  std::vector<std::pair<std::string, Variant>> constants_;
  std::vector<ScriptMethod> methods_;
};
