#pragma once

#include <memory>
#include <string>
#include <sys/stat.h>

#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/system/UniqueFd.h"

/// A name that no other entry has; empty with the reason in errno.
std::string TemporaryName();

/// A file in the making: it vanishes unless it is kept or takes another's place. Operations answer false with
/// the reason in errno.
class NewFile {
 public:
  explicit NewFile(const Place& target) : folder_(target.folder) {}
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// Under its final name, which must be free (EEXIST).
  bool CreateAs(const std::string& name, mode_t mode);

  /// Beside the target, under a name of its own.
  bool CreateBeside(mode_t mode);

  /// The same without a name where the file system can: then nothing stays of it even when this program is
  /// killed.
  bool CreateUnseen(mode_t mode);

  int Fd() const { return fd_.Get(); }

  /// Under the name that it has.
  bool Keep();

  /// Under a name that must be free (EEXIST).
  bool KeepAs(const std::string& name);
  bool TakePlaceOf(const std::string& target);

 private:
  bool Link(const std::string& name);
  bool Rename(const std::string& name, unsigned flags);
  void Remove() const;

  std::shared_ptr<const Folder> folder_;
  std::string name_;  // empty: none
  UniqueFd fd_;
};
