#include <algorithm>
#include <vector>

#include "base/Text.h"
#include "platform/win32/files/Win32Folders.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"

namespace {

struct Entry {
  std::wstring native;
  std::string name;
  DWORD attributes;
  bool isLink;
};

struct ByName {
  bool operator()(const Entry& a, const Entry& b) const { return LessNoCase()(a.name, b.name); }
};

/// A folder on the way from the one that is emptied to where the work is. While its handle is held the
/// system lets nobody rename, remove or exchange it.
struct Level {
  Handle held;
  bool isReadOnly;
  std::vector<Entry> entries;
  size_t next = 0;
  size_t nativeLength, pathLength;  // with their separators
};

/// Opens a folder itself, not what it may lead to.
Handle Hold(const std::wstring& native, BY_HANDLE_FILE_INFORMATION& found) {
  Handle held(CreateFileW(native.c_str(), FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES,
                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                          FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (held && !GetFileInformationByHandle(held.Get(), &found)) return Handle();
  return held;
}

bool IsLink(HANDLE held) {
  FILE_ATTRIBUTE_TAG_INFO tag = {};
  return GetFileInformationByHandleEx(held, FileAttributeTagInfo, &tag, sizeof tag) &&
         (tag.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         IsReparseTagNameSurrogate(tag.ReparseTag);
}

SysResult List(const std::wstring& folder, std::vector<Entry>& entries) {
  WIN32_FIND_DATAW data;
  const HANDLE search = FindFirstFileExW((folder + L'*').c_str(), FindExInfoBasic, &data,
                                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
  if (search == INVALID_HANDLE_VALUE) return LastFailure();
  do {
    const std::wstring_view name = data.cFileName;
    if (name == L"." || name == L"..") continue;
    const bool isLink = (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                        IsReparseTagNameSurrogate(data.dwReserved0);
    entries.push_back({std::wstring(name), FromWide(name), data.dwFileAttributes, isLink});
  } while (FindNextFileW(search, &data));
  const SysResult end = LastFailure();
  FindClose(search);
  std::sort(entries.begin(), entries.end(), ByName());
  return end.code == Win32Error::NoMoreFiles ? SysResult{} : end;
}

class Emptying {
 public:
  Emptying(std::wstring native, const EmptyingOptions& options)
      : options_(options), native_(std::move(native)), path_(options.shownAs) {}

  SysResult Run() {
    SysResult result = Enter();
    while (result && !levels_.empty()) {
      Level& level = levels_.back();
      result = level.next < level.entries.size() ? Take(level, level.entries[level.next++]) : Leave();
      if (result.code == Win32Error::FileNotFound) result = {};
    }
    return result;
  }

 private:
  /// Holds and lists the folder of the present path; a link that stands in its place is a failure, but for
  /// the first.
  SysResult Enter() {
    BY_HANDLE_FILE_INFORMATION found = {};
    Handle held = Hold(native_, found);
    if (!held) return LastFailure();
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 || IsLink(held.Get())) {
      return levels_.empty() ? SysResult{} : SysResult::Failure(Win32Error::PathNotFound);
    }
    if (!native_.ends_with(L'\\')) native_ += L'\\';
    const bool isReadOnly = (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    levels_.push_back({std::move(held), isReadOnly, {}, 0, native_.size(), path_.size()});
    return List(native_, levels_.back().entries);
  }

  SysResult Take(const Level& level, const Entry& entry) {
    const bool isFolder = (entry.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const bool enters = isFolder && !entry.isLink;
    native_.resize(level.nativeLength);
    native_ += entry.native;
    if (!Tell(enters ? EmptyingStep::Enter : EmptyingStep::Delete, entry.name)) return kStopped;
    if (enters) {
      path_.append(entry.name).push_back(options_.shownAs.back());
      const size_t outer = level.pathLength;
      const SysResult entered = Enter();
      if (!entered) path_.resize(outer);
      return entered;
    }
    if ((entry.attributes & FILE_ATTRIBUTE_READONLY) != 0) {
      if (!options_.deleteReadOnly) return SysResult::Failure(Win32Error::AccessDenied);
      SetFileAttributesW(native_.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    return ResultOf(isFolder ? RemoveDirectoryW(native_.c_str()) : DeleteFileW(native_.c_str()));
  }

  /// Goes back up and removes the folder that is empty now; the one that all began with stays.
  SysResult Leave() {
    const bool isReadOnly = levels_.back().isReadOnly;
    levels_.pop_back();
    if (levels_.empty()) return {};
    const Level& level = levels_.back();
    const Entry& entry = level.entries[level.next - 1];
    native_.resize(level.nativeLength);
    native_ += entry.native;
    path_.resize(level.pathLength);
    if (!Tell(EmptyingStep::Remove, entry.name)) return kStopped;
    if (isReadOnly) return SysResult::Failure(Win32Error::AccessDenied);
    return ResultOf(RemoveDirectoryW(native_.c_str()));
  }

  bool Tell(EmptyingStep step, const std::string& name) {
    if (!options_.watch) return true;
    const size_t length = path_.size();
    const bool goesOn = options_.watch(step, path_.append(name));
    path_.resize(length);
    return goesOn;
  }

  static constexpr SysResult kStopped = SysResult::Failure(Win32Error::RequestAborted);

  const EmptyingOptions& options_;
  std::wstring native_;
  std::string path_;
  std::vector<Level> levels_;
};

}  // namespace

SysResult Win32Folders::Empty(std::string_view path, const EmptyingOptions& options) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  // In the form without a length limit, for what lies below may be longer.
  if (!native.starts_with(L"\\\\")) native.insert(0, L"\\\\?\\");
  return Emptying(std::move(native), options).Run();
}
