#include "platform/posix/find/PosixFinder.h"

#include "base/Wildcard.h"
#include "base/WindowsPath.h"
#include "platform/FileAttributes.h"
#include "platform/posix/files/DosAttributes.h"
#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/files/TemporaryName.h"
#include "platform/posix/find/FolderListing.h"
#include "platform/posix/find/FolderReader.h"
#include "platform/posix/paths/ShownNames.h"
#include "platform/posix/system/LocalTime.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

/// The names are read at once, what stands under them is looked up when it is their turn.
class PosixFindSearch final : public FindSearch {
 public:
  explicit PosixFindSearch(SysResult result) : result_(result) {}
  PosixFindSearch(RecentEntry& recent, std::shared_ptr<const Folder> folder, FolderListing names,
                  uint32_t mask, FindDetail detail, SysResult listed)
      : recent_(&recent),
        folder_(std::move(folder)),
        names_(std::move(names)),
        excluded_(kByMaskOnly & ~mask),
        detail_(detail),
        result_(listed) {
    hasFirst_ = Find(first_);
  }

  bool IsEmpty() const { return !hasFirst_; }

  bool Next(FoundEntry& entry) override {
    if (!hasFirst_) return Find(entry);
    hasFirst_ = false;
    entry = std::move(first_);
    return true;
  }

  SysResult Result() const override { return result_; }

 private:
  static constexpr uint32_t kByMaskOnly =
      FileAttribute::Hidden | FileAttribute::System | FileAttribute::Directory;

  bool Find(FoundEntry& entry) {
    for (; next_ < names_.Size(); ++next_) {
      const char* name = names_.Name(next_);
      if (detail_ <= FindDetail::Status ? Look(name, entry) : Glance(name, names_.Type(next_), entry)) {
        entry.name = names_.Shown(next_++);
        return true;
      }
    }
    return false;
  }

  bool Status(const char* name, EntryStatus& found) {
    if (ReadStatus(folder_->fd.Get(), name, found)) return true;
    if (errno != ENOENT && result_) result_ = LastFailure();
    return false;
  }

  /// Finds out no more than the name needs: most often nothing that the listing has not said.
  bool Glance(const char* name, unsigned char type, FoundEntry& entry) {
    entry = {};
    const int folder = folder_->fd.Get();
    if (type == DT_LNK || type == DT_UNKNOWN) {
      EntryStatus found;
      if (!Status(name, found)) return false;
      if (found.IsFolder()) type = DT_DIR;
      if (found.isLink) entry.attributes = FileAttribute::ReparsePoint;
    }
    if (type == DT_DIR) entry.attributes |= FileAttribute::Directory;
    if (type != DT_DIR && detail_ == FindDetail::FolderNames) return false;
    if ((entry.attributes & excluded_) != 0) return false;
    constexpr uint32_t kStored = FileAttribute::Hidden | FileAttribute::System;
    if ((excluded_ & kStored) != 0 && (StoredAttributes(folder, name) & excluded_) != 0) return false;
    return true;
  }

  bool Look(const char* name, FoundEntry& entry) {
    EntryStatus found;
    if (!Status(name, found)) return false;
    const int folder = folder_->fd.Get();
    if (found.IsFolder() && (excluded_ & FileAttribute::Directory) != 0) return false;
    if (detail_ == FindDetail::Status && (excluded_ & (FileAttribute::Hidden | FileAttribute::System)) == 0) {
      entry.attributes = StatusAttributes(found);
    } else {
      entry.attributes = AttributesOf(folder, name, found);
      if ((entry.attributes & excluded_) != 0) return false;
      recent_->Keep(*folder_, name, {found, entry.attributes});
    }
    if (entry.attributes == 0) entry.attributes = FileAttribute::Normal;
    entry.size = S_ISREG(found.status.st_mode) ? static_cast<uint64_t>(found.status.st_size) : 0;
    entry.lastWrite = ToSeconds(found.status.st_mtim);
    entry.lastAccess = ToSeconds(found.status.st_atim);
    return true;
  }

  RecentEntry* recent_ = nullptr;
  std::shared_ptr<const Folder> folder_;
  FolderListing names_;
  uint32_t excluded_ = 0;
  FindDetail detail_ = FindDetail::All;
  size_t next_ = 0;
  FoundEntry first_;
  bool hasFirst_ = false;
  SysResult result_;
};

/// Whether a path can say the name. Without a folder before it, one may be read as a drive.
bool IsAddressable(std::string_view name, bool hasFolder) {
  return hasFolder || name.size() < 2 || name[1] != ':';
}

bool IsDots(std::string_view name) { return name == "." || name == ".."; }

/// The names that the wildcards match.
SysResult ListMatches(PosixPaths& paths, const Place& place, bool hasFolder, uint32_t mask, FindDetail detail,
                      FolderListing& names) {
  const bool wantsFiles = detail != FindDetail::FolderNames;
  if (!wantsFiles && paths.Leaf().Is(*place.folder)) return {};
  FolderReader reader(place.Fd());
  if (!reader) return LastFailure();
  const DosMask wanted(place.name);
  const bool wantsFolders = (mask & FileAttribute::Directory) != 0;
  bool isLeaf = true;
  while (const dirent* entry = reader.Next()) {
    const std::string_view name = entry->d_name;
    const bool isFile = entry->d_type == DT_REG;
    const bool isDots = !isFile && IsDots(name);
    isLeaf = isLeaf && (isFile || isDots);
    if (isFile || isDots ? !wantsFiles : entry->d_type == DT_DIR && !wantsFolders) continue;
    if (isDots && !wantsFolders) continue;
    if (IsTemporaryName(name) || !IsAddressable(name, hasFolder)) continue;
    if (IsShownAsItStands(name)) {
      if (wanted.Matches(name)) names.Add(name, entry->d_type);
    } else if (const std::string shown = ShownName(name); wanted.Matches(shown)) {
      names.Add(name, shown, entry->d_type);
    }
  }
  names.Sort();
  if (reader.Error() != 0) return SysResult::Failure(FromErrno(reader.Error()));
  if (isLeaf) paths.Leaf().Keep(*place.folder);
  return {};
}

/// The one name that a spec without wildcards means.
SysResult FindOne(PosixPaths& paths, Place& place, FolderListing& names) {
  if (IsTemporaryName(place.name)) return SysResult::Failure(Win32Error::FileNotFound);
  EntryStatus ignored;
  const SysResult found = StatusAt(place, ignored);
  if (!found && (found.code != Win32Error::FileNotFound || !paths.OtherCase(place))) return found;
  names.Add(place.name, ShownName(place.name), DT_UNKNOWN);
  return {};
}

std::unique_ptr<FindSearch> Nothing(SysResult& result, Win32Error code) {
  result = SysResult::Failure(code);
  return std::make_unique<PosixFindSearch>(result);
}

}  // namespace

std::unique_ptr<FindSearch> PosixFinder::Open(std::string_view spec, uint32_t mask, FindDetail detail,
                                              SysResult& result) {
  Place place = paths_.Locate(spec);
  const std::string_view folderPart = FolderPart(spec);
  if (!place.folder) {
    const bool badName = folderPart.find_first_of("*?") != std::string_view::npos;
    return Nothing(result, badName ? Win32Error::InvalidName : place.error);
  }
  if (IsPathDelimiter(spec.back())) return Nothing(result, Win32Error::FileNotFound);

  FolderListing names;
  const bool hasWildcards = place.name.find_first_of("*?") != std::string::npos;
  const SysResult listed = hasWildcards ? ListMatches(paths_, place, !folderPart.empty(), mask, detail, names)
                                        : FindOne(paths_, place, names);
  auto search = std::make_unique<PosixFindSearch>(paths_.Recent(), std::move(place.folder), std::move(names),
                                                  mask, detail, listed);
  result = search->Result();
  if (result && search->IsEmpty()) result = SysResult::Failure(Win32Error::FileNotFound);
  return search;
}
