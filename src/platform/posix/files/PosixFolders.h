#pragma once

#include "platform/Folders.h"
#include "platform/posix/paths/PosixPaths.h"

class PosixFolders final : public Folders {
 public:
  explicit PosixFolders(PosixPaths& paths) : paths_(paths) {}

  bool Exists(std::string_view path) override;
  SysResult Create(std::string_view path) override;
  SysResult CreateAsWritten(std::string_view path) override;
  using Folders::CreateWithParents;
  SysResult CreateWithParents(std::string_view path, std::string_view source) override;
  SysResult Remove(std::string_view path) override;
  SysResult Empty(std::string_view path, const EmptyingOptions& options) override;

 private:
  SysResult CreateAt(const Place& place);
  SysResult CreateFor(std::string_view source, std::string_view path);
  bool HasTwin(std::string_view source, const Place& target);
  SysResult RemoveAt(const Place& place);
  SysResult RemoveItself(const Place& place);

  PosixPaths& paths_;
};
