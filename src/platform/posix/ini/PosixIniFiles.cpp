#include "platform/posix/ini/PosixIniFiles.h"

#include <algorithm>
#include <utility>

#include "platform/posix/files/FileContents.h"
#include "platform/posix/files/FolderTurn.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

constexpr size_t kMostKnown = 8;

bool IsMissing(const SysResult& result) {
  return result.code == Win32Error::FileNotFound || result.code == Win32Error::PathNotFound;
}

}  // namespace

SysResult PosixIniFiles::Read(std::string_view path, std::string_view section, std::string_view key,
                              std::optional<std::string>& value) {
  const std::lock_guard lock(mutex_);
  value.reset();
  const SysResult loaded = Load(path);
  if (loaded) value = known_.front().text.Find(section, key);
  return loaded;
}

SysResult PosixIniFiles::ReadSections(std::string_view path, StringList& names) {
  const std::lock_guard lock(mutex_);
  names.clear();
  const SysResult loaded = Load(path);
  if (loaded) names = known_.front().text.Sections();
  return loaded;
}

SysResult PosixIniFiles::ReadEntries(std::string_view path, std::string_view section,
                                     std::vector<IniEntry>& entries) {
  const std::lock_guard lock(mutex_);
  entries.clear();
  const SysResult loaded = Load(path);
  if (loaded) entries = known_.front().text.Entries(section);
  return loaded;
}

SysResult PosixIniFiles::Write(std::string_view path, std::string_view section, std::string_view key,
                               std::string_view value) {
  return Change(path, [&](IniText& text) {
    text.Set(section, key, value);
    return true;
  });
}

SysResult PosixIniFiles::WriteEntries(std::string_view path, std::string_view section,
                                      std::span<const IniEntry> entries, OtherLines others) {
  return Change(path, [&](IniText& text) { return text.SetEntries(section, entries, others); });
}

SysResult PosixIniFiles::Delete(std::string_view path, std::string_view section, std::string_view key) {
  return Change(path, [&](IniText& text) { return text.Remove(section, key); });
}

SysResult PosixIniFiles::DeleteSection(std::string_view path, std::string_view section) {
  return Change(path, [&](IniText& text) { return text.RemoveSection(section); });
}

/// Brings the file to the front of those that are known; a missing one is empty.
SysResult PosixIniFiles::Load(std::string_view path) {
  const SysResult loaded = paths_.OnEntry(path, [this](const Place& place) { return LoadAt(place); });
  if (!IsMissing(loaded)) return loaded;
  Keep({});
  return {};
}

/// Reads the file unless its status tells that it is as it was. A file written a moment ago is read again but
/// need not be parsed again.
SysResult PosixIniFiles::LoadAt(const Place& place) {
  struct stat status = {};
  if (fstatat(place.Fd(), place.Name(), &status, 0) != 0) return LastFailure();
  // A pipe or a device might never come to its end.
  if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode))
    return SysResult::Failure(Win32Error::NotSupported);
  const FileStamp stamp = FileStamp::Of(status);
  const auto known = std::ranges::find(known_, stamp, &Known::stamp);
  if (known != known_.end()) known_.splice(known_.begin(), known_, known);
  if (known != known_.end() && known->isSettled) return {};
  const bool isSettled = FileStamp::TellsOfChanges(status);
  std::string contents;
  if (const SysResult read = ReadContents(place, contents); !read) return read;
  if (known != known_.end() && known->text.Contents() == contents) {
    known->isSettled = isSettled;
  } else {
    Keep({stamp, isSettled, IniText(std::move(contents))});
  }
  return {};
}

void PosixIniFiles::Keep(Known file) {
  std::erase_if(known_, [&](const Known& old) {
    return old.stamp.inode == 0 ||
           (old.stamp.inode == file.stamp.inode && old.stamp.device == file.stamp.device);
  });
  if (known_.size() >= kMostKnown) known_.pop_back();
  known_.push_front(std::move(file));
}

/// Edits the text of a file and replaces the file by it; an edit that changes nothing answers false.
SysResult PosixIniFiles::Change(std::string_view path, const std::function<bool(IniText&)>& edit) {
  const std::lock_guard lock(mutex_);
  const Place place = FinalPlace(paths_, path);
  const FolderTurn turn(place);
  if (!turn.Result()) return turn.Result();
  if (const SysResult loaded = Load(path); !loaded) return loaded;
  Known& known = known_.front();
  // Should anything go wrong from here on, the text is not the file's.
  const FileStamp before = std::exchange(known.stamp, {});
  if (!edit(known.text)) {
    known.stamp = before;
    return {};
  }
  if (const SysResult replaced = ReplaceContents(paths_, place, known.text.Contents()); !replaced) {
    return replaced;
  }
  known.stamp = StampOf(path);
  known.isSettled = false;
  return {};
}

FileStamp PosixIniFiles::StampOf(std::string_view path) {
  FileStamp stamp;
  paths_.OnEntry(path, [&](const Place& place) {
    struct stat status = {};
    if (fstatat(place.Fd(), place.Name(), &status, 0) != 0) return LastFailure();
    stamp = FileStamp::Of(status);
    return SysResult();
  });
  return stamp;
}
