#include "platform/posix/registry/RegistryStore.h"

#include <climits>
#include <cstdlib>
#include <fcntl.h>

#include "base/WindowsPath.h"
#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/files/FileContents.h"
#include "platform/posix/files/FolderTurn.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

// Of a line of its own behind each change; no line of a change looks like it.
constexpr std::string_view kRecordEnd = "\n;\n";

// A longer journal is folded into the file before the end of the run.
constexpr size_t kMostJournal = size_t{4} << 20;

std::string JournalName(const Place& place) { return place.name + ".journal"; }

/// False with the reason in errno; a status of zeros for an entry that is missing.
bool ReadStatus(const Place& place, const std::string& name, struct stat& status) {
  status = {};
  return fstatat(place.Fd(), name.c_str(), &status, 0) == 0 || errno == ENOENT;
}

/// The part of the file from `from` on.
SysResult ReadFrom(int fd, size_t from, std::string& bytes, size_t size) {
  bytes.resize(size - from);
  size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t count =
        pread(fd, bytes.data() + filled, bytes.size() - filled, static_cast<off_t>(from + filled));
    if (count < 0 && errno != EINTR) return LastFailure();
    if (count == 0) break;
    if (count > 0) filled += static_cast<size_t>(count);
  }
  bytes.resize(filled);
  return {};
}

}  // namespace

RegistryStore::~RegistryStore() {
  if (!hasWritten_) return;
  const Place place = Find();
  if (!place.folder) return;
  const FolderTurn turn(place);
  // What cannot be folded stays in the journal.
  if (turn.Result() && Load(place)) Fold(place);
}

SysResult RegistryStore::Look(const std::function<void(const RegistryText&)>& look) {
  const std::lock_guard lock(mutex_);
  const Place place = Find();
  if (!place.folder) {
    look(RegistryText());
    return {};
  }
  if (!IsCurrent(place)) {
    // A file and a journal that belong together.
    const FolderTurn turn(place);
    if (!turn.Result()) return turn.Result();
    if (const SysResult loaded = Load(place); !loaded) return loaded;
  }
  look(text_);
  return {};
}

SysResult RegistryStore::Change(std::string_view changes) {
  const std::lock_guard lock(mutex_);
  Place place = Find();
  if (!place.folder) {
    if (const SysResult made = folders_.CreateWithParents(ParentFolder(file_)); !made) return made;
    place = Find();
    if (!place.folder) return SysResult::Failure(place.error);
  }
  const FolderTurn turn(place);
  if (!turn.Result()) return turn.Result();
  if (const SysResult loaded = Load(place); !loaded) return loaded;
  if (const SysResult appended = Append(place, changes); !appended) return appended;
  return journalSize_ > kMostJournal ? Fold(place) : SysResult();
}

bool RegistryStore::IsReadOnly() {
  const std::lock_guard lock(mutex_);
  const Place place = Find();
  struct stat status = {};
  return place.folder && ReadStatus(place, place.name, status) && status.st_ino != 0 && ::IsReadOnly(status);
}

std::string RegistryStore::Damage() {
  const std::lock_guard lock(mutex_);
  return damage_;
}

/// The place of the file, with its folder where that exists. The file may be a link or be spelt in other
/// case; its journal is the one beside the real file.
Place RegistryStore::Find() {
  if (file_.empty()) file_ = askFile_();
  Place place = paths_.Locate(file_);
  if (isFound_ || !place.folder) return place;
  struct stat status = {};
  if (fstatat(place.Fd(), place.Name(), &status, 0) != 0) paths_.OtherCase(place);
  const std::string native = place.folder->path + '/' + place.name;
  char real[PATH_MAX];
  file_ = realpath(native.c_str(), real) ? real : native;
  isFound_ = true;
  return paths_.Locate(file_);
}

bool RegistryStore::IsCurrent(const Place& place) const {
  struct stat file, journal;
  return isSettled_ && ReadStatus(place, place.name, file) && FileStamp::Of(file) == stamp_ &&
         ReadStatus(place, JournalName(place), journal) && journal.st_ino == journal_ &&
         static_cast<size_t>(journal.st_size) == journalSize_;
}

/// Reads what has changed since it was last read.
SysResult RegistryStore::Load(const Place& place) {
  struct stat file, journal;
  if (!ReadStatus(place, place.name, file) || !ReadStatus(place, JournalName(place), journal)) {
    return LastFailure();
  }
  const auto size = static_cast<size_t>(journal.st_size);
  const bool isSame = isSettled_ && FileStamp::Of(file) == stamp_ && journal.st_ino == journal_;
  if (!isSame || size < journalSize_) {
    if (const SysResult loaded = LoadFile(place, file); !loaded) return loaded;
    journal_ = journal.st_ino;
    journalSize_ = 0;
    journalFd_ = UniqueFd();
  }
  return size == journalSize_ ? SysResult() : LoadJournal(place, size);
}

SysResult RegistryStore::LoadFile(const Place& place, const struct stat& status) {
  isSettled_ = false;
  text_ = RegistryText();
  const bool isMissing = status.st_ino == 0;
  if (!isMissing) {
    if (!S_ISREG(status.st_mode)) return SysResult::Failure(Win32Error::NotSupported);
    std::string contents;
    if (const SysResult read = ReadContents(place, contents); !read) return read;
    if (const auto fault = text_.Load(contents)) return Refuse(file_, *fault);
  }
  stamp_ = FileStamp::Of(status);
  isSettled_ = isMissing || FileStamp::TellsOfChanges(status);
  return {};
}

/// Reads the part of the journal that was not read yet. What stands behind the last end of a record was
/// being written when its writer was killed.
SysResult RegistryStore::LoadJournal(const Place& place, size_t size) {
  const std::string name = JournalName(place);
  const UniqueFd fd(openat(place.Fd(), name.c_str(), O_RDONLY | O_CLOEXEC));
  if (!fd) return LastFailure();
  std::string records;
  if (const SysResult read = ReadFrom(fd.Get(), journalSize_, records, size); !read) return read;
  const size_t last = records.rfind(kRecordEnd);
  records.resize(last == std::string::npos ? 0 : last + kRecordEnd.size());
  if (const auto fault = text_.Apply(records)) {
    isSettled_ = false;
    return Refuse(place.folder->path + '/' + name, *fault);
  }
  journalSize_ += records.size();
  return {};
}

SysResult RegistryStore::Refuse(std::string_view file, const RegistryFault& fault) {
  damage_ =
      "registry store " + std::string(file) + ", line " + std::to_string(fault.line) + ": " + fault.reason;
  return SysResult::Failure(Win32Error::BadRegistry);
}

SysResult RegistryStore::Append(const Place& place, std::string_view changes) {
  if (!journalFd_) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC;
    journalFd_ = UniqueFd(openat(place.Fd(), JournalName(place).c_str(), kFlags, 0666));
  }
  struct stat status = {};
  if (!journalFd_ || fstat(journalFd_.Get(), &status) != 0) return LastFailure();
  const auto before = static_cast<off_t>(journalSize_);
  const std::string record = std::string(changes).append(kRecordEnd);
  const bool isClean = status.st_size == before || ftruncate(journalFd_.Get(), before) == 0;
  if (!isClean || !WriteAll(journalFd_.Get(), record)) {
    const SysResult failure = LastFailure();
    if (isClean && ftruncate(journalFd_.Get(), before) != 0) isSettled_ = false;
    return failure;
  }
  hasWritten_ = true;
  journal_ = status.st_ino;
  journalSize_ += record.size();
  text_.Apply(changes);
  return {};
}

/// Replaces the file by one with the changes in it. Whoever is killed before the journal is gone leaves
/// changes that are made once more, which changes nothing.
SysResult RegistryStore::Fold(const Place& place) {
  if (journalSize_ == 0) return {};
  if (const SysResult replaced = ReplaceContents(paths_, place, text_.Contents()); !replaced) return replaced;
  unlinkat(place.Fd(), JournalName(place).c_str(), 0);
  isSettled_ = false;
  return {};
}
