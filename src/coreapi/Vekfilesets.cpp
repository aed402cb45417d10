#include "coreapi/Vekfilesets.h"

IVekFileSet* FindFileSet(IVekProjectObjectAPI& objects, std::string_view name) {
  return static_cast<IVekFileSet*>(objects.FindObject(name, kFileSetObject));
}

std::string FileSetNotFound(std::string_view name) {
  return "File set \"" + std::string(name) + "\" not found.";
}
