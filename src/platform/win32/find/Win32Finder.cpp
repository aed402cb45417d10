#include "platform/win32/find/Win32Finder.h"

#include <algorithm>
#include <vector>

#include "base/Text.h"
#include "base/Wildcard.h"
#include "base/WindowsPath.h"
#include "platform/FileAttributes.h"
#include "platform/win32/files/Win32TemporaryName.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"
#include "platform/win32/system/Win32Time.h"

namespace {

FoundEntry EntryOf(const WIN32_FIND_DATAW& data) {
  FoundEntry entry;
  entry.name = FromWide(data.cFileName);
  entry.attributes = data.dwFileAttributes;
  // What a file system keeps in a place of its own, or fetches from afar, is no link.
  if (!IsReparseTagNameSurrogate(data.dwReserved0)) entry.attributes &= ~FileAttribute::ReparsePoint;
  if (!(entry.attributes & FileAttribute::Directory)) {
    entry.size = uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow;
  }
  entry.lastWrite = UnixSeconds(data.ftLastWriteTime);
  entry.lastAccess = UnixSeconds(data.ftLastAccessTime);
  return entry;
}

bool IsDots(std::string_view name) { return name == "." || name == ".."; }

bool IsWanted(const FoundEntry& entry, uint32_t mask, FindDetail detail) {
  const bool isFolder = (entry.attributes & FileAttribute::Directory) != 0;
  if (detail == FindDetail::FolderNames && (!isFolder || IsDots(entry.name))) return false;
  constexpr uint32_t kOnlyWhenAsked =
      FileAttribute::Hidden | FileAttribute::System | FileAttribute::Directory;
  return (entry.attributes & kOnlyWhenAsked & ~mask) == 0;
}

/// Leaves of an entry no more than was asked for.
void Reduce(FoundEntry& entry, FindDetail detail) {
  if (detail <= FindDetail::Status) return;
  entry.attributes &= FileAttribute::Directory | FileAttribute::ReparsePoint;
  entry.size = 0;
  entry.lastWrite = entry.lastAccess = 0;
}

/// "." and ".." first, then by upper-cased name.
bool ComesBefore(const FoundEntry& a, const FoundEntry& b) {
  if (IsDots(a.name) || IsDots(b.name)) return IsDots(a.name) && (!IsDots(b.name) || a.name < b.name);
  return LessNoCase()(a.name, b.name);
}

/// Calls `take` with what the system finds, one entry after another.
template <class Take>
SysResult List(const std::wstring& native, Take take) {
  WIN32_FIND_DATAW data;
  const HANDLE search = FindFirstFileExW(native.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch,
                                         nullptr, FIND_FIRST_EX_LARGE_FETCH);
  if (search == INVALID_HANDLE_VALUE) return LastFailure();
  do {
    if (!IsTemporaryName(data.cFileName)) take(EntryOf(data));
  } while (FindNextFileW(search, &data));
  const SysResult end = LastFailure();
  FindClose(search);
  return end.code == Win32Error::NoMoreFiles ? SysResult{} : end;
}

bool IsFile(std::string_view folder) {
  std::wstring native;
  if (!NativePath(WithoutTrailingDelimiter(folder), native)) return false;
  const DWORD attributes = GetFileAttributesW(native.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

class Win32Search final : public FindSearch {
 public:
  /// Takes the whole folder in at once: its file system need not list in the order promised.
  SysResult Open(std::string_view spec, uint32_t mask, FindDetail detail) {
    detail_ = detail;
    const std::string_view pattern = NamePart(spec);
    const bool matches = HasWildcards(pattern);
    const std::string_view folder = FolderPart(spec);
    // To the file system these are wildcards too, of kinds that no user writes.
    if (pattern.find_first_of("<>\"") != std::string_view::npos) {
      return SysResult::Failure(Win32Error::InvalidName);
    }
    std::wstring listed;
    SysResult result = NativePath(!matches ? spec : folder.empty() ? "." : folder, listed);
    if (!result) return result;
    folder_ = listed;
    if (matches) {
      if (!listed.ends_with(L'\\')) listed += L'\\';
      folder_ = listed;
      listed += L'*';
    } else {
      folder_.resize(folder_.find_last_of(L'\\') + 1);
    }
    // The system's own matching also sees short names, and its rules differ from version to version.
    result = List(listed, [&](FoundEntry entry) {
      if (IsWanted(entry, mask, detail) && (!matches || MatchesDosMask(entry.name, pattern))) {
        Reduce(entry, detail);
        entries_.push_back(std::move(entry));
      }
    });
    // A file on the way is a folder that is missing, whatever code the system has for it.
    if (!result && matches && IsFile(folder)) return SysResult::Failure(Win32Error::PathNotFound);
    std::sort(entries_.begin(), entries_.end(), ComesBefore);
    if (result.ok && entries_.empty()) return SysResult::Failure(Win32Error::FileNotFound);
    return result;
  }

  bool Next(FoundEntry& entry) override {
    while (next_ < entries_.size()) {
      entry = std::move(entries_[next_++]);
      if (detail_ != FindDetail::All || IsDots(entry.name) || IsStillThere(entry.name)) return true;
    }
    return false;
  }

  void SetResult(SysResult result) { result_ = result; }
  SysResult Result() const override { return result_; }

 private:
  bool IsStillThere(std::string_view name) const {
    const std::wstring path = folder_ + ToWide(name).value_or(L"");
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES ||
           LastError() != Win32Error::FileNotFound;
  }

  FindDetail detail_ = FindDetail::All;
  std::wstring folder_;
  std::vector<FoundEntry> entries_;
  size_t next_ = 0;
  SysResult result_;
};

}  // namespace

std::unique_ptr<FindSearch> Win32Finder::Open(std::string_view spec, uint32_t mask, FindDetail detail,
                                              SysResult& result) {
  auto search = std::make_unique<Win32Search>();
  result = search->Open(spec, mask, detail);
  search->SetResult(result);
  return search;
}
