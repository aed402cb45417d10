#pragma once

#include <memory>
#include <string>
#include <sys/stat.h>

#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/system/UniqueFd.h"

/// A file in the making: it vanishes unless it is kept or takes another's place, and has its name only when
/// it is whole. Operations answer false with the reason in errno.
class NewFile {
 public:
  explicit NewFile(const Place& target) : folder_(target.folder) {}
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// Without a name where the file system can: then nothing stays of it even when this program is killed.
  bool CreateUnseen(mode_t mode);

  /// Beside the target, under a name of its own: cheaper for what takes another's place.
  bool CreateBeside(mode_t mode);

  int Fd() const { return fd_.Get(); }

  /// Under a name that must be free (EEXIST, and the file can still take that one's place).
  bool KeepAs(const std::string& name);
  bool TakePlaceOf(const std::string& target);

 private:
  bool Link(const char* name);
  bool LinkBeside();
  bool RenameToFree(const std::string& name);
  bool Finish();

  std::shared_ptr<const Folder> folder_;
  std::string name_;  // empty: none
  UniqueFd fd_;
  UniqueFd held_;  // the lock on the name, for as long as the file has that
};
