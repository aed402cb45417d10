#include "frame/Vekcatalogue.h"

#include "coreapi/Vekservices.h"

namespace {

void Register(const CatalogueRow& row, bool designTime) {
  if (row.routine) return row.routine(designTime);
  if (!row.actionClass) return;
  const ActionClass& actionClass = row.actionClass();
  const std::string_view name = row.displayName.empty() ? actionClass.ActionName() : row.displayName;
  VekActionServices().RegisterAction(name, row.category, actionClass, row.typeId);
}

}  // namespace

void RegisterActions(std::span<const CatalogueRow> rows, bool designTime) {
  for (const CatalogueRow& row : rows) Register(row, designTime);
}

void RegisterPages(std::span<const CatalogueRow> rows) {
  for (const CatalogueRow& row : rows) {
    if (row.pageRoutine) row.pageRoutine();
    if (!row.pages.empty()) VekActionServices().RegisterPropertyPages(row.actionClass(), row.pages);
  }
}

void RegisterEditors(std::span<const EditorRow> rows) {
  for (const EditorRow& row : rows) {
    VekActionServices().RegisterPropertyEditor(row.propertyType, row.actionClass(), *row.editor,
                                               row.propertyName);
  }
}
