#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "base/WindowsPath.h"
#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Folders.h"
#include "platform/Platform.h"

/// The real files, except for what a test wants to go wrong.
class FailingFiles final : public Entries, public Folders, public Contents {
 public:
  explicit FailingFiles(const Platform& real) : real_(real) {}

  /// The real platform with these files in place of its own.
  Platform In(const Platform& real) {
    Platform failing = real;
    failing.entries = this;
    failing.folders = this;
    failing.contents = this;
    return failing;
  }

  /// Answered for the file of that name instead of deleting it.
  struct Deletion {
    SysResult answer;
  };
  std::map<std::string, Deletion, std::less<>> deletions;

  /// Answered instead of replacing any file.
  std::optional<SysResult> replacement;

  /// Called with the source's name before a copy or a move, or with the file's before its attributes are
  /// written; what it answers stands in for the operation.
  using Answer = std::optional<SysResult>;
  std::function<Answer(std::string_view name, const CopyOptions& options)> copying;
  std::function<Answer(std::string_view name, uint32_t flags, const CopyProgress& progress)> moving;
  std::function<Answer(std::string_view name, uint32_t attributes)> settingAttributes;

  /// Told of every file that has been opened, to put something in its place.
  std::function<void(std::string_view name, std::unique_ptr<OpenFile>& file)> opened;

  /// The names of a file that is said not to exist, and of one that is said to.
  std::string missing, present;

  /// Folders are only said to be made.
  bool makesNoFolders = false;

  SysResult Delete(std::string_view path) override {
    const auto planned = deletions.find(NamePart(path));
    return planned == deletions.end() ? real_.entries->Delete(path) : planned->second.answer;
  }
  SysResult Replace(std::string_view path, std::string_view contents) override {
    return replacement ? *replacement : real_.contents->Replace(path, contents);
  }

  std::optional<EntryIdentity> Identity(std::string_view path) override {
    return real_.entries->Identity(path);
  }
  SysResult GetSize(std::string_view path, uint64_t& size) override {
    return real_.entries->GetSize(path, size);
  }
  SysResult Copy(std::string_view source, std::string_view target, const CopyOptions& options) override {
    const Answer planned = copying ? copying(NamePart(source), options) : std::nullopt;
    return planned ? *planned : real_.entries->Copy(source, target, options);
  }
  SysResult Move(std::string_view source, std::string_view target, uint32_t flags,
                 const CopyProgress& progress) override {
    const Answer planned = moving ? moving(NamePart(source), flags, progress) : std::nullopt;
    return planned ? *planned : real_.entries->Move(source, target, flags, progress);
  }
  bool FileExists(std::string_view path) override {
    const std::string_view name = NamePart(path);
    if (!name.empty() && (name == present || name == missing)) return name == present;
    return real_.entries->FileExists(path);
  }
  bool Exists(std::string_view path) override { return real_.folders->Exists(path); }
  bool EntryExists(std::string_view path) override { return real_.entries->EntryExists(path); }
  SysResult GetAttributes(std::string_view path, uint32_t& attributes) override {
    return real_.entries->GetAttributes(path, attributes);
  }
  SysResult SetAttributes(std::string_view path, uint32_t attributes) override {
    const Answer planned = settingAttributes ? settingAttributes(NamePart(path), attributes) : std::nullopt;
    return planned ? *planned : real_.entries->SetAttributes(path, attributes);
  }
  SysResult ChangeLastWrite(std::string_view path, const LastWriteChange& change) override {
    return real_.entries->ChangeLastWrite(path, change);
  }
  SysResult Create(std::string_view path) override { return real_.folders->Create(path); }
  SysResult CreateWithParents(std::string_view path) override {
    return makesNoFolders ? SysResult() : real_.folders->CreateWithParents(path);
  }
  SysResult Remove(std::string_view path) override { return real_.folders->Remove(path); }
  SysResult Empty(std::string_view path, const EmptyingOptions& options) override {
    return real_.folders->Empty(path, options);
  }
  SysResult ReadWhole(std::string_view path, std::string& contents) override {
    return real_.contents->ReadWhole(path, contents);
  }

  SysResult Rewrite(std::string_view path, std::unique_ptr<NewContents>& contents) override {
    return real_.contents->Rewrite(path, contents);
  }
  SysResult Open(std::string_view path, OpenMode mode, ShareMode share,
                 std::unique_ptr<OpenFile>& file) override {
    const SysResult result = real_.contents->Open(path, mode, share, file);
    if (result && opened) opened(NamePart(path), file);
    return result;
  }

 private:
  Platform real_;
};
