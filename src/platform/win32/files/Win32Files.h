#pragma once

#include "platform/Files.h"

class Win32Files final : public Files {
 public:
  bool FileExists(std::string_view path) override;
  bool FolderExists(std::string_view path) override;
  bool EntryExists(std::string_view path) override;
  std::optional<EntryIdentity> Identity(std::string_view path) override;
  SysResult GetSize(std::string_view path, uint64_t& size) override;
  SysResult GetAttributes(std::string_view path, uint32_t& attributes) override;
  SysResult SetAttributes(std::string_view path, uint32_t attributes) override;
  SysResult Delete(std::string_view path) override;
  SysResult Copy(std::string_view source, std::string_view target, const CopyOptions& options) override;
  SysResult Move(std::string_view source, std::string_view target, uint32_t flags,
                 const CopyProgress& progress) override;
  SysResult CreateFolder(std::string_view path) override;
  SysResult CreateFolders(std::string_view path) override;
  SysResult RemoveFolder(std::string_view path) override;
  SysResult ReadWhole(std::string_view path, std::string& contents) override;
  SysResult Replace(std::string_view path, std::string_view contents) override;
};
