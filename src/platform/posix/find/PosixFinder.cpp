#include "platform/posix/find/PosixFinder.h"

#include "base/Wildcard.h"
#include "base/WindowsPath.h"
#include "platform/FileAttributes.h"
#include "platform/posix/files/DosAttributes.h"
#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/find/FolderListing.h"
#include "platform/posix/find/FolderReader.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

/// The names are read at once, what stands under them is looked up when it is their turn.
class PosixFindSearch final : public FindSearch {
 public:
  PosixFindSearch() = default;
  PosixFindSearch(RecentEntry& recent, std::shared_ptr<const Folder> folder, FolderListing names,
                  uint32_t mask, FindDetail detail)
      : recent_(&recent),
        folder_(std::move(folder)),
        names_(std::move(names)),
        excluded_(kByMaskOnly & ~mask),
        detail_(detail) {
    hasFirst_ = Find(first_);
  }

  bool IsEmpty() const { return !hasFirst_; }

  bool Next(FoundEntry& entry) override {
    if (!hasFirst_) return Find(entry);
    hasFirst_ = false;
    entry = std::move(first_);
    return true;
  }

 private:
  static constexpr uint32_t kByMaskOnly =
      FileAttribute::Hidden | FileAttribute::System | FileAttribute::Directory;

  bool Find(FoundEntry& entry) {
    for (; next_ < names_.Size(); ++next_) {
      const char* name = names_.Name(next_);
      if (detail_ == FindDetail::All ? Look(name, entry) : Glance(name, names_.Type(next_), entry)) {
        ++next_;
        return true;
      }
    }
    return false;
  }

  /// Finds out no more than the name needs: most often nothing that the listing has not said.
  bool Glance(const char* name, unsigned char type, FoundEntry& entry) const {
    entry = {};
    const int folder = folder_->fd.Get();
    if (type == DT_LNK || type == DT_UNKNOWN) {
      EntryStatus found;
      if (!ReadStatus(folder, name, found)) return false;
      if (found.IsFolder()) type = DT_DIR;
      if (found.isLink) entry.attributes = FileAttribute::ReparsePoint;
    }
    if (type == DT_DIR) entry.attributes |= FileAttribute::Directory;
    if (type != DT_DIR && detail_ == FindDetail::FolderNames) return false;
    if ((entry.attributes & excluded_) != 0) return false;
    constexpr uint32_t kStored = FileAttribute::Hidden | FileAttribute::System;
    if ((excluded_ & kStored) != 0 && (StoredAttributes(folder, name) & excluded_) != 0) return false;
    entry.name = name;
    return true;
  }

  bool Look(const char* name, FoundEntry& entry) const {
    EntryStatus found;
    const int folder = folder_->fd.Get();
    if (!ReadStatus(folder, name, found)) return false;
    if (found.IsFolder() && (excluded_ & FileAttribute::Directory) != 0) return false;
    entry.attributes = AttributesOf(folder, name, found);
    if ((entry.attributes & excluded_) != 0) return false;
    recent_->Keep(*folder_, name, {found, entry.attributes});
    if (entry.attributes == 0) entry.attributes = FileAttribute::Normal;
    entry.name = name;
    const timespec& time = found.status.st_mtim;
    entry.size = S_ISREG(found.status.st_mode) ? static_cast<uint64_t>(found.status.st_size) : 0;
    entry.lastWrite = static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
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
};

/// Whether a path can say the name. It cannot where the name would be read as something else.
bool IsAddressable(std::string_view name, bool hasFolder) {
  const bool looksLikeDrive = name.size() > 1 && name[1] == ':';
  return name.find('\\') == std::string_view::npos && (hasFolder || !looksLikeDrive);
}

bool IsDots(std::string_view name) { return name == "." || name == ".."; }

/// The names that the wildcards match; false with the reason in errno.
bool ListMatches(PosixPaths& paths, const Place& place, bool hasFolder, uint32_t mask, FindDetail detail,
                 FolderListing& names) {
  const bool wantsFiles = detail != FindDetail::FolderNames;
  if (!wantsFiles && paths.Leaf().Is(*place.folder)) return true;
  FolderReader reader(place.Fd());
  if (!reader) return false;
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
    if (wanted.Matches(name) && IsAddressable(name, hasFolder)) names.Add(name, entry->d_type);
  }
  names.Sort();
  if (isLeaf) paths.Leaf().Keep(*place.folder);
  return true;
}

/// The one name that a spec without wildcards means.
bool FindOne(PosixPaths& paths, Place& place, FolderListing& names) {
  EntryStatus ignored;
  if (!ReadStatus(place.Fd(), place.Name(), ignored) && (errno != ENOENT || !paths.OtherCase(place)))
    return false;
  names.Add(place.name, DT_UNKNOWN);
  return true;
}

std::unique_ptr<FindSearch> Nothing(SysResult& result, Win32Error code) {
  result = SysResult::Failure(code);
  return std::make_unique<PosixFindSearch>();
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
  const bool listed = hasWildcards ? ListMatches(paths_, place, !folderPart.empty(), mask, detail, names)
                                   : FindOne(paths_, place, names);
  if (!listed) return Nothing(result, FromErrno(errno));
  auto search = std::make_unique<PosixFindSearch>(paths_.Recent(), std::move(place.folder), std::move(names),
                                                  mask, detail);
  result = search->IsEmpty() ? SysResult::Failure(Win32Error::FileNotFound) : SysResult();
  return search;
}
