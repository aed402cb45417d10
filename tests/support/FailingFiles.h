#pragma once

#include <map>
#include <optional>
#include <string>

#include "base/WindowsPath.h"
#include "platform/Files.h"

/// The real files, except for what a test wants to go wrong.
class FailingFiles final : public Files {
 public:
  explicit FailingFiles(Files& real) : real_(real) {}

  /// Answered for the file of that name instead of deleting it.
  struct Deletion {
    SysResult answer;
  };
  std::map<std::string, Deletion, std::less<>> deletions;

  /// Answered instead of replacing any file.
  std::optional<SysResult> replacement;

  SysResult Delete(std::string_view path) override {
    const auto planned = deletions.find(NamePart(path));
    return planned == deletions.end() ? real_.Delete(path) : planned->second.answer;
  }
  SysResult Replace(std::string_view path, std::string_view contents) override {
    return replacement ? *replacement : real_.Replace(path, contents);
  }

  bool FileExists(std::string_view path) override { return real_.FileExists(path); }
  bool FolderExists(std::string_view path) override { return real_.FolderExists(path); }
  bool EntryExists(std::string_view path) override { return real_.EntryExists(path); }
  SysResult GetAttributes(std::string_view path, uint32_t& attributes) override {
    return real_.GetAttributes(path, attributes);
  }
  SysResult SetAttributes(std::string_view path, uint32_t attributes) override {
    return real_.SetAttributes(path, attributes);
  }
  SysResult CreateFolder(std::string_view path) override { return real_.CreateFolder(path); }
  SysResult CreateFolders(std::string_view path) override { return real_.CreateFolders(path); }
  SysResult RemoveFolder(std::string_view path) override { return real_.RemoveFolder(path); }
  SysResult ReadWhole(std::string_view path, std::string& contents) override {
    return real_.ReadWhole(path, contents);
  }

 private:
  Files& real_;
};
