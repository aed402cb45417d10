#include "pages/Vekregeditors.h"

#include "textini/Vekregaction.h"

std::string TRegRootPropertyEditor::GetValue() const {
  return NameOf(static_cast<uint32_t>(std::get<int64_t>(Property().get(Action()))));
}

void TRegRootPropertyEditor::SetValue(std::string_view text) {
  if (const auto root = RootOf(text)) Property().set(Action(), int64_t{*root});
}

StringList TRegRootPropertyEditor::Names() {
  StringList names;
  for (const RegistryRootRow& row : kRegistryRoots) names.emplace_back(row.name);
  return names;
}

std::string TRegRootPropertyEditor::NameOf(uint32_t root) {
  for (const RegistryRootRow& row : kRegistryRoots) {
    if (row.root == root) return std::string(row.name);
  }
  return {};
}

std::optional<uint32_t> TRegRootPropertyEditor::RootOf(std::string_view name) {
  for (const RegistryRootRow& row : kRegistryRoots) {
    if (row.name == name) return row.root;
  }
  return {};
}
