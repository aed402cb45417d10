#include "platform/posix/paths/NameIndex.h"

#include <algorithm>
#include <fcntl.h>

#include "platform/posix/files/TemporaryName.h"
#include "platform/posix/find/FolderReader.h"
#include "platform/posix/paths/ShownNames.h"

namespace {

constexpr size_t kFolders = 4;

// A change within one tick of the file system's clock does not show in the folder's time, hence the limit. A
// folder that takes long to read is believed for so many times as long, so that reading it again and again
// stays a small part of the work.
constexpr auto kBelieved = std::chrono::seconds(1);
constexpr int kBelievedTimes = 20;

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

std::optional<std::string> NameIndex::Find(int folder, std::string_view name, const Wanted& isWanted) {
  struct stat status = {};
  if (fstat(folder, &status) != 0) return {};
  const std::lock_guard lock(mutex_);
  Names* names = Known(status);
  if (names == nullptr) names = Read(folder, status);
  if (names == nullptr) return {};
  std::string_view found;
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

bool NameIndex::Knows(int folder) {
  const std::lock_guard lock(mutex_);
  struct stat status = {};
  return !folders_.empty() && fstat(folder, &status) == 0 && Known(status) != nullptr;
}

void NameIndex::Refresh(int folder, std::string_view added, std::string_view removed) {
  struct stat status = {};
  if (fstat(folder, &status) != 0) return;
  const std::lock_guard lock(mutex_);
  for (Names& names : folders_) {
    if (names.device != status.st_dev || names.inode != status.st_ino) continue;
    names.changed = status.st_ctim;
    if (!removed.empty()) names.table.Remove(removed);
    if (!added.empty()) names.table.Add(added);
  }
}

/// The names of a folder that has not changed since they were read.
NameIndex::Names* NameIndex::Known(const struct stat& status) {
  const auto names = std::find_if(folders_.begin(), folders_.end(), [&](const Names& n) {
    return n.device == status.st_dev && n.inode == status.st_ino;
  });
  if (names == folders_.end()) return nullptr;
  const bool same = names->changed.tv_sec == status.st_ctim.tv_sec &&
                    names->changed.tv_nsec == status.st_ctim.tv_nsec && Clock::now() < names->believedUntil;
  if (same) return &*names;
  folders_.erase(names);
  return nullptr;
}

/// Null when the folder cannot be read: then only exact names are found.
NameIndex::Names* NameIndex::Read(int folder, const struct stat& status) {
  const Clock::time_point start = Clock::now();
  FolderReader reader(folder);
  if (!reader) return nullptr;
  if (folders_.size() == kFolders) folders_.pop_back();
  Names& names = folders_.emplace_front(status.st_dev, status.st_ino, status.st_ctim, start, NameTable());
  while (const dirent* entry = reader.Next()) {
    if (IsTemporaryName(entry->d_name)) {
      RemoveAbandoned(folder, entry->d_name);
    } else {
      names.table.Add(entry->d_name);
    }
  }
  if (reader.Error() != 0) {
    folders_.pop_front();
    return nullptr;
  }
  const Clock::time_point end = Clock::now();
  names.believedUntil = end + std::max<Clock::duration>(kBelieved, kBelievedTimes * (end - start));
  return &names;
}
