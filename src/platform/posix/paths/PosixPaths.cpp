#include "platform/posix/paths/PosixPaths.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>

#include "base/WindowsPath.h"
#include "platform/posix/files/TemporaryName.h"
#include "platform/posix/paths/ShownNames.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

// For so long a folder that was just used is taken to stand where it stood. It spares a system call per file
// where thousands are handled in a row, and no other program starts and moves a folder meanwhile.
constexpr auto kBelieved = std::chrono::microseconds(100);

/// A path that is longer than the system takes at once is opened in pieces.
UniqueFd OpenAt(int folder, std::string_view path) {
  constexpr int kFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;
  UniqueFd above;
  for (size_t cut; path.size() >= PATH_MAX && (cut = path.rfind('/', PATH_MAX - 2)) != path.npos;) {
    above = UniqueFd(openat(folder, std::string(path.substr(0, cut + 1)).c_str(), kFlags));
    if (!above) return above;
    folder = above.Get();
    path.remove_prefix(cut + 1);
  }
  return UniqueFd(openat(folder, path.empty() ? "." : std::string(path).c_str(), kFlags));
}

bool StatusOf(const std::string& path, struct stat& status) {
  if (path.size() < PATH_MAX) return stat(path.c_str(), &status) == 0;
  const UniqueFd folder = OpenAt(AT_FDCWD, path);
  return folder && fstat(folder.Get(), &status) == 0;
}

bool IsSame(const Folder& folder, const struct stat& status) {
  return folder.device == status.st_dev && folder.inode == status.st_ino;
}

bool NamesFolderItself(std::string_view name) { return name.empty() || name == "." || name == ".."; }

}  // namespace

std::optional<std::string> PosixPaths::Native(std::string_view path) {
  std::string native;
  if (NamesDrive(path)) {
    auto root = DriveRoot(static_cast<char>(path[0] & ~0x20));
    if (!root) return {};
    native = std::move(*root);
    path.remove_prefix(2);
    if (native.ends_with('/')) native.pop_back();
    if (path.empty() || !IsPathDelimiter(path[0])) native += '/';
  }
  native += path;
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

std::optional<std::string> PosixPaths::DriveRoot(char letter) {
  if (letter == 'Z') return "/";
  auto& known = roots_[static_cast<size_t>(letter - 'A')];
  {
    const std::lock_guard lock(mutex_);
    if (known) return *known;
  }
  // Unlocked, since whoever answers may read files itself.
  auto root = drives_ ? drives_(letter) : std::nullopt;
  const std::lock_guard lock(mutex_);
  known = root;
  return root;
}

Place PosixPaths::Locate(std::string_view path) {
  Place place;
  if (path.empty()) return place;
  if (path.find('\0') != std::string_view::npos) {
    place.error = Win32Error::InvalidName;
    return place;
  }
  while (path.size() > 1 && IsPathDelimiter(path.back())) path.remove_suffix(1);
  const size_t folderLength = FolderPart(path).size();
  const std::string_view name = path.substr(folderLength);
  if (NamesFolderItself(name)) return LocateFolder(path);
  place.folder = OpenFolder(path.substr(0, folderLength), place.error);
  place.name = name;
  return place;
}

Place PosixPaths::LocateFolder(std::string_view path) {
  Place place;
  place.folder = OpenFolder(path, place.error);
  place.name = ".";
  return place;
}

bool PosixPaths::OtherCase(Place& place) {
  auto found = names_.Find(*place.folder, place.name, NameIndex::Look::Again);
  if (!found || *found == place.name) return false;
  place.name = std::move(*found);
  return true;
}

bool PosixPaths::SettleTarget(Place& target, const Place* source) {
  const auto isNoTwin = [&](std::string_view name) {
    return source == nullptr || !twins_.IsOfTwin(*source, target, name);
  };
  auto found = names_.Find(*target.folder, target.name, NameIndex::Look::Once, isNoTwin);
  target.name = found ? std::move(*found) : DiskName(target.name);
  return found.has_value();
}

bool PosixPaths::SettleAsWritten(Place& target) {
  // Who reads the names of a folder removes what was abandoned there; here nobody reads them.
  SweepOnce(*target.folder);
  struct stat status = {};
  const std::string name = DiskName(target.name);
  const bool isAsWritten =
      name == target.name || fstatat(target.Fd(), target.Name(), &status, AT_SYMLINK_NOFOLLOW) == 0;
  if (!isAsWritten) target.name = name;
  return true;
}

void PosixPaths::SweepOnce(const Folder& folder) {
  {
    const std::lock_guard lock(mutex_);
    if (!swept_.emplace(folder.device, folder.inode).second) return;
  }
  RemoveAllAbandoned(folder.fd.Get());
}

void PosixPaths::ForgetFolders() {
  const std::lock_guard lock(mutex_);
  used_ = {};
}

/// A folder that was opened by the same text and still stands there.
std::shared_ptr<const Folder> PosixPaths::UsedBefore(std::string_view folderText) {
  const Clock::time_point now = Clock::now();
  const std::lock_guard lock(mutex_);
  const auto hit = std::find_if(used_.begin(), used_.end(), [&](const UsedFolder& used) {
    return used.folder && used.text == folderText;
  });
  if (hit == used_.end()) return nullptr;
  std::rotate(used_.begin(), hit, hit + 1);
  UsedFolder& used = used_.front();
  if (now - used.seen < kBelieved) return used.folder;
  struct stat status = {};
  if (!StatusOf(used.folder->path, status) || !IsSame(*used.folder, status)) {
    used = {};
    return nullptr;
  }
  used.seen = now;
  return used.folder;
}

std::shared_ptr<const Folder> PosixPaths::OpenFolder(std::string_view folderText, Win32Error& error) {
  if (auto folder = UsedBefore(folderText)) return folder;
  auto native = Native(folderText);
  if (!native) return nullptr;
  std::string path = native->empty() ? "." : *native;
  int reason = 0;
  UniqueFd fd = OpenAt(AT_FDCWD, path);
  if (!fd) reason = errno;
  if (reason == ENOENT) fd = Descend(*native, path, reason);
  struct stat status = {};
  if (fd && fstat(fd.Get(), &status) != 0) {
    reason = errno;
    fd.Close();
  }
  if (!fd) {
    error = reason == ENOENT ? Win32Error::PathNotFound : FromErrno(reason);
    return nullptr;
  }
  auto folder = std::make_shared<Folder>(std::move(fd), std::move(path), status.st_dev, status.st_ino);
  const std::lock_guard lock(mutex_);
  std::move_backward(used_.begin(), used_.end() - 1, used_.end());
  used_.front() = {std::string(folderText), folder, Clock::now()};
  return folder;
}

/// Walks down to a folder name by name, without regard to case where that is needed; `path` tells the names
/// that stand on the disk.
UniqueFd PosixPaths::Descend(const std::string& native, std::string& path, int& error) {
  path = native.starts_with('/') ? "/" : "./";
  UniqueFd folder = OpenAt(AT_FDCWD, path);
  for (size_t start = 0; folder && start < native.size();) {
    const size_t end = std::min(native.find('/', start), native.size());
    std::string name = native.substr(start, end - start);
    start = end + 1;
    if (name.empty()) continue;
    UniqueFd next = OpenAt(folder.Get(), name);
    if (!next && errno == ENOENT) {
      struct stat status = {};
      fstat(folder.Get(), &status);
      const Folder here{std::move(folder), path, status.st_dev, status.st_ino};
      name = names_.Find(here, name, NameIndex::Look::Again).value_or(name);
      next = OpenAt(here.fd.Get(), name);
    }
    path.append(name).push_back('/');
    folder = std::move(next);
  }
  error = errno;
  return folder;
}
