#include "platform/posix/paths/NameIndex.h"

#include <algorithm>
#include <fcntl.h>

#include "platform/posix/files/TemporaryName.h"
#include "platform/posix/find/FolderReader.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/paths/ShownNames.h"

namespace {

constexpr size_t kFolders = 4;

// A change within one tick of the file system's clock does not show in the folder's time, hence the limit. A
// folder that takes long to read is believed for so many times as long, so that reading it again and again
// stays a small part of the work.
constexpr auto kBelieved = std::chrono::seconds(1);
constexpr int kBelievedTimes = 20;

// Two looks at a folder within less are one.
constexpr auto kOneLook = std::chrono::microseconds(100);

/// Orders names by how near they are to the wanted one: itself, what is shown so, then what is called so and
/// what is shown so in other case.
bool IsNearer(std::string_view a, std::string_view b, std::string_view wanted) {
  const auto distance = [wanted](std::string_view name) {
    if (IsShownAsItStands(name)) return name == wanted ? 0 : 2;
    return ShownName(name) == wanted ? 1 : 3;
  };
  const int x = distance(a), y = distance(b);
  return x != y ? x < y : a < b;
}

}  // namespace

std::optional<std::string> NameIndex::Find(const Folder& folder, std::string_view name, Look look,
                                           const Wanted& isWanted) {
  const std::lock_guard lock(mutex_);
  Names* names = Known(folder, look);
  if (names == nullptr) names = Read(folder);
  std::string_view found;
  if (names == nullptr) {
    // What cannot be listed has exact names only.
    struct stat status = {};
    const std::string exact(name);
    const bool stands = fstatat(folder.fd.Get(), exact.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    return stands ? std::optional(exact) : std::nullopt;
  }
  names->table.ForEach(name, [&](std::string_view candidate) {
    if (candidate != name && isWanted && !isWanted(candidate)) return;
    if (found.empty() || IsNearer(candidate, found, name)) found = candidate;
  });
  return found.empty() ? std::nullopt : std::optional(std::string(found));
}

void NameIndex::Forget() {
  const std::lock_guard lock(mutex_);
  folders_.clear();
}

void NameIndex::LookAgain() {
  const std::lock_guard lock(mutex_);
  for (Names& names : folders_) names.looked = {};
}

bool NameIndex::Knows(const Folder& folder) {
  const std::lock_guard lock(mutex_);
  return Known(folder, Look::Once) != nullptr;
}

void NameIndex::Refresh(const Folder& folder, std::string_view added, std::string_view removed) {
  const std::lock_guard lock(mutex_);
  struct stat status = {};
  const auto names = Of(folder);
  if (names == folders_.end() || fstat(folder.fd.Get(), &status) != 0) return;
  names->changed = status.st_ctim;
  names->looked = Clock::now();
  if (!removed.empty()) names->table.Remove(removed);
  if (!added.empty()) names->table.Add(added);
}

std::list<NameIndex::Names>::iterator NameIndex::Of(const Folder& folder) {
  return std::find_if(folders_.begin(), folders_.end(), [&](const Names& names) {
    return names.device == folder.device && names.inode == folder.inode;
  });
}

/// The names of a folder that has not changed since they were read.
NameIndex::Names* NameIndex::Known(const Folder& folder, Look look) {
  const auto names = Of(folder);
  if (names == folders_.end()) return nullptr;
  const Clock::time_point now = Clock::now();
  const bool isOneLook = now - names->looked < kOneLook && now < names->believedUntil;
  if (look == Look::Once && isOneLook) return &*names;
  struct stat status = {};
  const bool same = fstat(folder.fd.Get(), &status) == 0 && names->changed.tv_sec == status.st_ctim.tv_sec &&
                    names->changed.tv_nsec == status.st_ctim.tv_nsec && now < names->believedUntil;
  names->looked = now;
  if (same) return &*names;
  folders_.erase(names);
  return nullptr;
}

/// Null when the folder cannot be read: then only exact names are found.
NameIndex::Names* NameIndex::Read(const Folder& folder) {
  const Clock::time_point start = Clock::now();
  struct stat status = {};
  FolderReader reader(folder.fd.Get());
  if (fstat(folder.fd.Get(), &status) != 0 || !reader) return nullptr;
  if (folders_.size() == kFolders) folders_.pop_back();
  Names& names =
      folders_.emplace_front(folder.device, folder.inode, status.st_ctim, start, start, NameTable());
  while (const dirent* entry = reader.Next()) {
    if (IsTemporaryName(entry->d_name)) {
      RemoveAbandoned(folder.fd.Get(), entry->d_name);
    } else {
      names.table.Add(entry->d_name);
    }
  }
  if (reader.Error() != 0) {
    folders_.pop_front();
    return nullptr;
  }
  names.looked = Clock::now();
  names.believedUntil =
      names.looked + std::max<Clock::duration>(kBelieved, kBelievedTimes * (names.looked - start));
  return &names;
}
