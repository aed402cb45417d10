#include "frame/Vekfilereg.h"

#include "coreapi/Vekservices.h"
#include "fileops/VekDeleteFilesAction.h"
#include "frame/Vekcatalogue.h"
#include "frame/Vekregistryreg.h"
#include "pages/VekCreateFileFrame.h"
#include "pages/VekFileNameEditEx.h"
#include "pages/VekWriteToTextFileFrame.h"
#include "pages/Vekdeletefilesframe.h"
#include "textini/VekCreateTextFileAction.h"
#include "textini/VekWriteToTextFileAction.h"

namespace {

constexpr std::string_view kFiles = "Files & Directories";

// In registration order; a host lists the types of a category in it.
// clang-format off
constexpr CatalogueRow kCatalogue[] = {
    ActionRow<TDeleteFilesAction, TDeleteFilesFrame>("HDELETE_FILE", "Delete File(s)", kFiles),
    RoutineRow(RegisterRegistryUnit),
    ActionRow<TVekCreateTextFileAction, TCreateFileFrame>("HCREATEFILE", kOwnName, kFiles),
    ActionRow<TVekWriteToTextFileAction, TWriteToTextFileFrame>("WRITETOTEXTFILE", kOwnName, kFiles),
};

// The two rows of Delete File(s) apply to nothing: it has no Target, and its FileSpec is a byte string.
constexpr EditorRow kEditors[] = {
    PropertyEditor<TDeleteFilesAction, TFileNameEditEx>("WideString", "FileSpec"),
    PropertyEditor<TDeleteFilesAction, TFileNameEditEx>("WideString", "Target"),
};
// clang-format on

void Register(const CatalogueRow& row, bool designTime) {
  if (row.routine) return row.routine(designTime);
  const ActionClass& actionClass = row.actionClass();
  const std::string_view name = row.displayName.empty() ? actionClass.ActionName() : row.displayName;
  VekActionServices().RegisterAction(name, row.category, actionClass, row.typeId);
}

void RegisterEditors() {
  for (const EditorRow& row : kEditors) {
    VekActionServices().RegisterPropertyEditor(row.propertyType, row.actionClass(), *row.editor,
                                               row.propertyName);
  }
}

void RegisterPages() {
  for (const CatalogueRow& row : kCatalogue) {
    if (!row.pages.empty()) VekActionServices().RegisterPropertyPages(row.actionClass(), row.pages);
  }
}

}  // namespace

bool VekRegister(bool designTime) {
  for (const CatalogueRow& row : kCatalogue) Register(row, designTime);
  if (designTime) {
    RegisterEditors();
    RegisterPages();
  }
  return true;
}
