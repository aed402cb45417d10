#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/RegistryText.h"
#include "platform/posix/files/FileStamp.h"
#include "platform/posix/files/PosixFolders.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/system/UniqueFd.h"

/// The text file that holds the registry, and beside it the journal of the changes that are not in it yet.
///
/// A change is on disk as soon as it stands in the journal, which costs one append; whoever looks, in this
/// and in other processes, sees the file with the journal on top. At the end of the run the file is replaced
/// by one with the changes in it, and the journal goes. After a run that was killed it stays, and the next
/// one that writes takes it over. A change that broke off in the middle does not count.
class RegistryStore {
 public:
  /// `file` is asked for the path once, when the store is first used.
  RegistryStore(PosixPaths& paths, PosixFolders& folders, std::function<std::string()> file)
      : paths_(paths), folders_(folders), askFile_(std::move(file)) {}
  ~RegistryStore();
  RegistryStore(const RegistryStore&) = delete;
  RegistryStore& operator=(const RegistryStore&) = delete;

  SysResult Look(const std::function<void(const RegistryText&)>& look);

  /// Makes the changes that the text tells of, as RegistryText::Apply takes it.
  SysResult Change(std::string_view changes);

  /// True for a file that is not to be changed.
  bool IsReadOnly();

  /// After BadRegistry: the file, the line and what is wrong there.
  std::string Damage();

 private:
  Place Find();
  bool IsCurrent(const Place& place) const;
  SysResult Load(const Place& place);
  SysResult LoadFile(const Place& place, const struct stat& status);
  SysResult LoadJournal(const Place& place, size_t size);
  SysResult Refuse(std::string_view file, const RegistryFault& fault);
  SysResult Append(const Place& place, std::string_view changes);
  SysResult Fold(const Place& place);

  PosixPaths& paths_;
  PosixFolders& folders_;
  std::function<std::string()> askFile_;
  std::mutex mutex_;
  std::string file_;  // as the option names it until its folder is found, then without links
  bool isFound_ = false;
  bool hasWritten_ = false;
  std::string damage_;

  // What was read.
  RegistryText text_;
  FileStamp stamp_;
  bool isSettled_ = false;  // the stamp tells of every change
  ino_t journal_ = 0;       // 0: there is none
  size_t journalSize_ = 0;
  UniqueFd journalFd_;
};
