#include "platform/posix/paths/DiskChange.h"

DiskChange::DiskChange(PosixPaths& paths, const Place& place, Kind kind)
    : paths_(paths), folder_(place.folder.get()), kind_(kind) {
  namesKnown_ = kind_ >= File && paths_.names_.Knows(*folder_);
}

DiskChange::~DiskChange() {
  if (namesKnown_) paths_.names_.Refresh(*folder_, added_, removed_);
  paths_.recent_.Forget();
  if (kind_ >= NewFolder) paths_.leaf_.Forget();
  if (kind_ >= Folder) {
    paths_.ForgetFolders();
    paths_.names_.LookAgain();
  }
  if (kind_ == Anything) paths_.names_.Forget();
}
