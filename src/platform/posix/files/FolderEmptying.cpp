#include "platform/posix/files/FolderEmptying.h"

#include <dirent.h>
#include <fcntl.h>
#include <vector>

#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/find/FolderListing.h"
#include "platform/posix/find/FolderReader.h"
#include "platform/posix/paths/ShownNames.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

// Folders are held by descriptors and entered by name without following links, so that nothing done to the
// tree meanwhile leads out of it. Only the deepest ones are held open, for there may be more levels than a
// process may have descriptors; the way back up is checked.
constexpr size_t kHeldOpen = 64;

constexpr SysResult kGone = SysResult::Failure(Win32Error::FileNotFound);

/// A folder on the way from the one that is emptied to where the work is.
struct Level {
  UniqueFd fd;
  struct stat status;
  FolderListing entries;
  size_t next = 0;
  size_t pathLength;  // with its separator
};

class Emptying {
 public:
  explicit Emptying(const EmptyingOptions& options) : options_(options), path_(options.shownAs) {}

  SysResult Run(int parent, const char* name) {
    SysResult result = Enter(parent, name);
    while (result && !levels_.empty()) {
      Level& level = levels_.back();
      if (level.next < level.entries.Size()) {
        result = Take(level, level.next++);
        if (result.code == kGone.code) result = {};
      } else {
        result = Leave();
      }
    }
    return result;
  }

 private:
  /// Goes into a sub-folder and lists it; a link that stands in its place is a failure.
  SysResult Enter(int parent, const char* name) {
    UniqueFd fd(openat(parent, name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!fd || fstat(fd.Get(), &status) != 0) return LastFailure();
    FolderReader reader(fd.Get());
    if (!reader) return LastFailure();
    if (levels_.size() >= kHeldOpen) levels_[levels_.size() - kHeldOpen].fd = UniqueFd();
    Level& level = levels_.emplace_back(Level{std::move(fd), status, {}, 0, path_.size()});
    while (const dirent* entry = reader.Next()) {
      const std::string_view found = entry->d_name;
      if (found == "." || found == "..") continue;
      if (IsShownAsItStands(found)) {
        level.entries.Add(found, entry->d_type);
      } else {
        level.entries.Add(found, ShownName(found), entry->d_type);
      }
    }
    level.entries.Sort();
    return reader.Error() == 0 ? SysResult() : SysResult::Failure(FromErrno(reader.Error()));
  }

  SysResult Take(const Level& level, size_t index) {
    const char* name = level.entries.Name(index);
    const std::string_view shown = level.entries.Shown(index);
    unsigned char type = level.entries.Type(index);
    const bool checks = type != DT_DIR && type != DT_LNK && !options_.deleteReadOnly;
    if (checks || type == DT_UNKNOWN) {
      struct stat status = {};
      if (fstatat(level.fd.Get(), name, &status, AT_SYMLINK_NOFOLLOW) != 0) return LastFailure();
      type = S_ISDIR(status.st_mode) ? DT_DIR : DT_REG;
      const bool refused = type != DT_DIR && !options_.deleteReadOnly && IsReadOnly(status);
      if (refused) return Tell(EmptyingStep::Delete, shown), SysResult::Failure(Win32Error::AccessDenied);
    }
    const bool isFolder = type == DT_DIR;
    if (!Tell(isFolder ? EmptyingStep::Enter : EmptyingStep::Delete, shown)) return kStopped;
    if (!isFolder) return Result(unlinkat(level.fd.Get(), name, 0));
    path_.append(shown).push_back(options_.shownAs.back());
    const SysResult entered = Enter(level.fd.Get(), name);
    if (!entered) path_.resize(level.pathLength);
    return entered;
  }

  /// Goes back up and removes the folder that is empty now; the one that all began with stays.
  SysResult Leave() {
    const bool isReadOnly = IsReadOnly(levels_.back().status);
    UniqueFd left = std::move(levels_.back().fd);
    levels_.pop_back();
    if (levels_.empty()) return {};
    Level& level = levels_.back();
    if (!level.fd && !Reopen(level, left.Get())) return SysResult::Failure(Win32Error::PathNotFound);
    left.Close();
    path_.resize(level.pathLength);
    const char* name = level.entries.Name(level.next - 1);
    if (!Tell(EmptyingStep::Remove, level.entries.Shown(level.next - 1))) return kStopped;
    if (isReadOnly) return SysResult::Failure(Win32Error::AccessDenied);
    const SysResult removed = Result(unlinkat(level.fd.Get(), name, AT_REMOVEDIR));
    return removed.code == kGone.code ? SysResult() : removed;
  }

  /// False when the folder above is not the one that the way came through: the tree was moved.
  static bool Reopen(Level& level, int below) {
    level.fd = UniqueFd(openat(below, "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat status = {};
    return level.fd && fstat(level.fd.Get(), &status) == 0 && status.st_dev == level.status.st_dev &&
           status.st_ino == level.status.st_ino;
  }

  bool Tell(EmptyingStep step, std::string_view name) {
    if (!options_.watch) return true;
    const size_t length = path_.size();
    const bool goesOn = options_.watch(step, path_.append(name));
    path_.resize(length);
    return goesOn;
  }

  static SysResult Result(int answer) { return answer == 0 ? SysResult() : LastFailure(); }

  static constexpr SysResult kStopped = SysResult::Failure(Win32Error::RequestAborted);

  const EmptyingOptions& options_;
  std::string path_;
  std::vector<Level> levels_;
};

}  // namespace

SysResult EmptyFolder(const Place& place, const EmptyingOptions& options) {
  struct stat status = {};
  if (fstatat(place.Fd(), place.Name(), &status, AT_SYMLINK_NOFOLLOW) != 0) return LastFailure();
  if (S_ISLNK(status.st_mode)) return {};
  return Emptying(options).Run(place.Fd(), place.Name());
}
