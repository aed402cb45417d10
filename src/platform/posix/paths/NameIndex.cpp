#include "platform/posix/paths/NameIndex.h"

#include <algorithm>
#include <fcntl.h>

#include "base/Text.h"
#include "platform/posix/find/FolderReader.h"

namespace {

constexpr size_t kFolders = 4;

// A change within one tick of the file system's clock does not show in the folder's time, hence the limit.
constexpr auto kBelieved = std::chrono::seconds(1);

}  // namespace

std::optional<std::string> NameIndex::Find(int folder, std::string_view name) {
  struct stat status = {};
  if (fstat(folder, &status) != 0) return {};
  const std::lock_guard lock(mutex_);
  Names* names = Known(status);
  if (names == nullptr) names = Read(folder, status);
  if (names == nullptr) return {};
  const auto [first, last] = names->byUpperName.equal_range(UpCase(name));
  if (first == last) return {};
  if (std::any_of(first, last, [&](const auto& entry) { return entry.second == name; }))
    return std::string(name);
  return std::min_element(first, last, [](const auto& a, const auto& b) { return a.second < b.second; })
      ->second;
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
    if (!removed.empty()) {
      const auto [first, last] = names.byUpperName.equal_range(UpCase(removed));
      const auto hit = std::find_if(first, last, [&](const auto& entry) { return entry.second == removed; });
      if (hit != last) names.byUpperName.erase(hit);
    }
    if (!added.empty()) names.byUpperName.emplace(UpCase(added), added);
  }
}

/// The names of a folder that has not changed since they were read.
NameIndex::Names* NameIndex::Known(const struct stat& status) {
  const auto names = std::find_if(folders_.begin(), folders_.end(), [&](const Names& n) {
    return n.device == status.st_dev && n.inode == status.st_ino;
  });
  if (names == folders_.end()) return nullptr;
  const bool same = names->changed.tv_sec == status.st_ctim.tv_sec &&
                    names->changed.tv_nsec == status.st_ctim.tv_nsec &&
                    Clock::now() - names->read < kBelieved;
  if (same) return &*names;
  folders_.erase(names);
  return nullptr;
}

/// Null when the folder cannot be read: then only exact names are found.
NameIndex::Names* NameIndex::Read(int folder, const struct stat& status) {
  FolderReader reader(folder);
  if (!reader) return nullptr;
  if (folders_.size() == kFolders) folders_.pop_back();
  Names& names = folders_.emplace_front(status.st_dev, status.st_ino, status.st_ctim, Clock::now());
  while (const dirent* entry = reader.Next()) names.byUpperName.emplace(UpCase(entry->d_name), entry->d_name);
  return &names;
}
