#include "platform/posix/paths/RecentEntry.h"

#include "platform/posix/paths/PosixPaths.h"

namespace {

constexpr auto kBelieved = std::chrono::microseconds(100);

}  // namespace

void RecentEntry::Keep(const Folder& folder, const char* name, const SeenEntry& seen) {
  const std::lock_guard lock(mutex_);
  device_ = folder.device;
  inode_ = folder.inode;
  name_ = name;
  seen_ = seen;
  when_ = Clock::now();
}

std::optional<SeenEntry> RecentEntry::Find(const Folder& folder, const std::string& name) {
  const std::lock_guard lock(mutex_);
  if (name_ != name || inode_ != folder.inode || device_ != folder.device) return {};
  return Clock::now() - when_ < kBelieved ? std::optional(seen_) : std::nullopt;
}

void RecentEntry::Forget() {
  const std::lock_guard lock(mutex_);
  name_.clear();
}

void RecentLeaf::Keep(const Folder& folder) {
  const std::lock_guard lock(mutex_);
  device_ = folder.device;
  inode_ = folder.inode;
  when_ = Clock::now();
}

bool RecentLeaf::Is(const Folder& folder) {
  const std::lock_guard lock(mutex_);
  return inode_ == folder.inode && device_ == folder.device && Clock::now() - when_ < kBelieved;
}

void RecentLeaf::Forget() {
  const std::lock_guard lock(mutex_);
  inode_ = 0;
}
