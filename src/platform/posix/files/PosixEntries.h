#pragma once

#include "platform/Entries.h"
#include "platform/posix/paths/PosixPaths.h"

class Folders;

class PosixEntries final : public Entries {
 public:
  PosixEntries(PosixPaths& paths, Folders& folders) : paths_(paths), folders_(folders) {}

  bool FileExists(std::string_view path) override;
  bool EntryExists(std::string_view path) override;
  bool TargetExists(std::string_view source, std::string_view target) override;
  SysResult CheckReplace(std::string_view path) override;
  std::optional<EntryIdentity> Identity(std::string_view path) override;
  SysResult GetSize(std::string_view path, uint64_t& size) override;
  SysResult GetAttributes(std::string_view path, uint32_t& attributes) override;
  SysResult SetAttributes(std::string_view path, uint32_t attributes) override;
  SysResult ChangeLastWrite(std::string_view path, const LastWriteChange& change) override;
  SysResult Delete(std::string_view path) override;
  SysResult Copy(std::string_view source, std::string_view target, const CopyOptions& options) override;
  SysResult Move(std::string_view source, std::string_view target, uint32_t flags,
                 const CopyProgress& progress) override;

 private:
  SysResult DeleteAt(const Place& place);

  PosixPaths& paths_;
  Folders& folders_;
};
