#pragma once

#include <functional>
#include <list>
#include <mutex>

#include "platform/IniFiles.h"
#include "platform/IniText.h"
#include "platform/posix/files/FileStamp.h"
#include "platform/posix/paths/PosixPaths.h"

/// Keeps the files used last in memory. A file is read again only when its status differs from what it was,
/// so that reading a value costs a look at the status.
class PosixIniFiles final : public IniFiles {
 public:
  explicit PosixIniFiles(PosixPaths& paths) : paths_(paths) {}

  SysResult Read(std::string_view path, std::string_view section, std::string_view key,
                 std::optional<std::string>& value) override;
  SysResult ReadSections(std::string_view path, StringList& names) override;
  SysResult ReadEntries(std::string_view path, std::string_view section,
                        std::vector<IniEntry>& entries) override;
  SysResult Write(std::string_view path, std::string_view section, std::string_view key,
                  std::string_view value) override;
  SysResult WriteEntries(std::string_view path, std::string_view section, std::span<const IniEntry> entries,
                         OtherLines others) override;
  SysResult Delete(std::string_view path, std::string_view section, std::string_view key) override;
  SysResult DeleteSection(std::string_view path, std::string_view section) override;

 private:
  struct Known {
    FileStamp stamp;
    bool isSettled;  // the stamp is old enough to tell of every change
    IniText text;
  };

  SysResult Load(std::string_view path);
  SysResult LoadAt(const Place& place);
  void Keep(Known file);
  SysResult Change(std::string_view path, const std::function<bool(IniText&)>& edit);
  FileStamp StampOf(std::string_view path);

  PosixPaths& paths_;
  std::mutex mutex_;
  std::list<Known> known_;  // the one used last in front
};
