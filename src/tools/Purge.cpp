#include "tools/Purge.h"

#include <vector>

#include "base/WindowsPath.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Folders.h"

namespace {

bool IsLink(uint32_t attributes) { return (attributes & FileAttribute::ReparsePoint) != 0; }
bool IsFolder(uint32_t attributes) { return (attributes & FileAttribute::Directory) != 0; }

}  // namespace

SysResult Purge::Remove(const std::string& path, const FoundEntry& entry) const {
  if (!IsFolder(entry.attributes) || IsLink(entry.attributes)) return RemoveFile(path, entry.attributes);
  if (selection_.MeansEveryName()) return RemoveFolder(path, entry.attributes);
  return RemoveSelected(path);
}

SysResult Purge::RemoveFile(const std::string& path, uint32_t attributes) const {
  const bool isProtected = (attributes & FileAttribute::ReadOnly) != 0 && !IsLink(attributes);
  if (isProtected) platform_.entries->SetAttributes(path, FileAttribute::Normal);
  const SysResult removed = platform_.entries->Delete(path);
  if (!removed && isProtected) platform_.entries->SetAttributes(path, attributes);
  return removed.code == Win32Error::FileNotFound ? SysResult() : removed;
}

/// With all that it holds; nothing done to it meanwhile leads elsewhere.
SysResult Purge::RemoveFolder(const std::string& path, uint32_t attributes) const {
  if ((attributes & FileAttribute::ReadOnly) != 0) {
    platform_.entries->SetAttributes(path, FileAttribute::Normal);
  }
  const EmptyingOptions options{
      .deleteReadOnly = true, .shownAs = path + '/', .watch = [this](EmptyingStep, std::string_view) {
        return !interruption_.IsSignalled();
      }};
  const SysResult emptied = platform_.folders->Empty(path, options);
  return emptied ? platform_.folders->Remove(path) : emptied;
}

/// Of what it holds only what is selected; the deepest first. It goes itself when nothing is left.
SysResult Purge::RemoveSelected(const std::string& path) const {
  struct Level {
    std::string path;
    std::vector<FoundEntry> entries;
    size_t next = 0;
  };
  std::vector<Level> levels;
  SysResult result;
  const auto enter = [&](std::string folder) {
    Level& level = levels.emplace_back(Level{std::move(folder), {}});
    const SysResult listed = planner_.List(level.path, level.entries);
    if (result) result = listed;
  };
  enter(path + '/');
  while (!levels.empty() && !interruption_.IsSignalled()) {
    Level& level = levels.back();
    if (level.next == level.entries.size()) {
      const SysResult removed = platform_.folders->Remove(level.path);
      if (result && !removed && removed.code != Win32Error::DirNotEmpty) result = removed;
      levels.pop_back();
      continue;
    }
    const FoundEntry& entry = level.entries[level.next++];
    if (IsFolder(entry.attributes) && !IsLink(entry.attributes)) {
      if (!selection_.IsExcludedFolder(level.path, entry.name)) enter(level.path + entry.name + '/');
    } else if (!selection_.IsKept(level.path, entry.name)) {
      const SysResult removed = RemoveFile(level.path + entry.name, entry.attributes);
      if (result) result = removed;
    }
  }
  return interruption_.IsSignalled() ? SysResult::Failure(Win32Error::RequestAborted) : result;
}
