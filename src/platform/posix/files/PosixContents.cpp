#include "platform/posix/files/PosixContents.h"

#include "base/WindowsPath.h"
#include "platform/ChangeContents.h"
#include "platform/posix/files/FileContents.h"
#include "platform/posix/files/FolderTurn.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/files/PosixOpenFile.h"
#include "platform/posix/files/Rewrite.h"
#include "platform/posix/paths/DiskChange.h"

SysResult PosixContents::ReadWhole(std::string_view path, std::string& contents) {
  return paths_.OnEntry(path, [&](const Place& place) { return ReadContents(place, contents); });
}

SysResult PosixContents::ReadStream(std::string_view path, std::string& contents) {
  return paths_.OnEntry(path, [&](const Place& place) { return ::ReadStream(place, contents); });
}

SysResult PosixContents::Replace(std::string_view path, std::string_view contents) {
  return InTurn(path, [&](const Place& place) { return ReplaceContents(paths_, place, contents); });
}

SysResult PosixContents::Change(std::string_view path, const Edit& edit) {
  return InTurn(path, [&](const Place&) { return ChangeContents(*this, path, edit); });
}

template <class Operation>
SysResult PosixContents::InTurn(std::string_view path, Operation operation) {
  const Place place = FinalPlace(paths_, path);
  if (!place.folder) return SysResult::Failure(place.error);
  const FolderTurn turn(place);
  return turn.Result() ? operation(place) : turn.Result();
}

SysResult PosixContents::Rewrite(std::string_view path, std::unique_ptr<NewContents>& contents) {
  return BeginRewrite(paths_, path, contents);
}

SysResult PosixContents::Open(std::string_view path, OpenMode mode, ShareMode share,
                              std::unique_ptr<OpenFile>& file) {
  const bool namesFolder = EndsInPathDelimiter(path);
  const SysResult opened =
      paths_.OnEntry(path, [&](const Place& place) { return OpenExisting(place, mode, share, file); });
  if (namesFolder && opened.code == Win32Error::FileNotFound)
    return SysResult::Failure(Win32Error::PathNotFound);
  if (mode != OpenMode::Create || opened.code != Win32Error::FileNotFound) return opened;
  Place place = paths_.Locate(path);
  if (!place.folder) return SysResult::Failure(place.error);
  paths_.SettleTarget(place);
  DiskChange change(paths_, place, DiskChange::File);
  const SysResult created = CreateAndOpen(place, share, file);
  if (created) change.Added(place.name);
  return created;
}
