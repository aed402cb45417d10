#include "host/filesets/FileSets.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "coreapi/Vekactionhost.h"
#include "coreapi/Vekfilesets.h"
#include "coreapi/Vekfolderwalk.h"
#include "coreapi/Vekutils.h"
#include "host/filesets/PathPattern.h"
#include "platform/ErrorTexts.h"
#include "platform/FileAttributes.h"
#include "platform/Platform.h"

namespace {

constexpr uint32_t kHiddenToo = FileAttribute::Hidden | FileAttribute::System;

/// Patterns and what of each the folders of a walk have used up.
class PatternList {
 public:
  using States = std::vector<PathPattern::State>;

  PatternList(IVekActionHost& host, const StringList& texts) {
    for (const std::string& text : texts) patterns_.emplace_back(host.ExpandExpression(text));
  }

  States Start() const {
    States states;
    for (const PathPattern& pattern : patterns_) states.push_back(pattern.Start());
    return states;
  }

  States Enter(const States& states, std::string_view folderName) const {
    States below;
    for (size_t i = 0; i < patterns_.size(); ++i) below.push_back(patterns_[i].Enter(states[i], folderName));
    return below;
  }

  bool MatchesFile(const States& states, std::string_view name) const {
    return Any([&](size_t i) { return patterns_[i].MatchesFile(states[i], name); });
  }
  bool CanMatchBelow(const States& states) const {
    return Any([&](size_t i) { return patterns_[i].CanMatchBelow(states[i]); });
  }
  bool MatchesAllBelow(const States& states) const {
    return Any([&](size_t i) { return patterns_[i].MatchesAllBelow(states[i]); });
  }

 private:
  template <class Test>
  bool Any(Test test) const {
    for (size_t i = 0; i < patterns_.size(); ++i) {
      if (test(i)) return true;
    }
    return false;
  }

  std::vector<PathPattern> patterns_;
};

/// One pass over the disk. The files of a folder come before those of its sub-folders.
class Evaluation {
 public:
  Evaluation(IVekActionHost& host, const FileSetDeclaration& declaration)
      : host_(host),
        finder_(*host.GetPlatform().finder),
        walk_(*host.GetPlatform().entries, finder_, host.GetFolderLinks(),
              [this](std::string_view folder, Win32Error code) { Fail(folder, code); }),
        includes_(host, declaration.includes),
        excludes_(host, declaration.excludes) {}

  StringList FilesBelow(const std::string& baseFolder) {
    Visit(baseFolder, includes_.Start(), excludes_.Start());
    if (host_.StopSignalled()) throw EVekError("stopped before the file set was complete");
    return std::move(files_);
  }

 private:
  using States = PatternList::States;

  void Visit(const std::string& folder, const States& includes, const States& excludes) {
    if (!includes_.CanMatchBelow(includes) || excludes_.MatchesAllBelow(excludes)) return;
    TakeFiles(folder, includes, excludes);
    walk_.ForEachFolder(folder, kHiddenToo, [&](const std::string& name) {
      Visit(AsFolder(host_.GetPlatform(), folder + name), includes_.Enter(includes, name),
            excludes_.Enter(excludes, name));
      return !host_.StopSignalled();
    });
  }

  [[noreturn]] void Fail(std::string_view folder, Win32Error code) const {
    throw EVekError("cannot search " + std::string(folder) + ": " +
                    host_.GetPlatform().errorTexts->Text(code));
  }

  void TakeFiles(const std::string& folder, const States& includes, const States& excludes) {
    SysResult found;
    const auto search = finder_.Open(folder + "*", kHiddenToo, FindDetail::Names, found);
    for (FoundEntry entry; search->Next(entry);) {
      if (includes_.MatchesFile(includes, entry.name) && !excludes_.MatchesFile(excludes, entry.name)) {
        files_.push_back(folder + entry.name);
      }
    }
    if (const SysResult result = search->Result(); IsUnreadable(result)) Fail(folder, result.code);
  }

  IVekActionHost& host_;
  Finder& finder_;
  TFolderWalk walk_;
  PatternList includes_, excludes_;
  StringList files_;
};

}  // namespace

class ProjectFileSet final : public IVekFileSet {
 public:
  ProjectFileSet(IVekActionHost& host, FileSetDeclaration declaration, const FileSetDeclaration*& beingRead)
      : host_(host), declaration_(std::move(declaration)), beingRead_(beingRead) {}

  const std::string& Name() const { return declaration_.name; }

  void Refresh() override {
    struct Scope {
      const FileSetDeclaration*& current;
      const FileSetDeclaration* before;
      ~Scope() { current = before; }
    } scope{beingRead_, std::exchange(beingRead_, &declaration_)};
    const Platform& platform = host_.GetPlatform();
    const std::string baseFolder = AsFolder(platform, host_.ExpandPath(declaration_.baseDirectory));
    files_ = Evaluation(host_, declaration_).FilesBelow(SearchedFolder(platform, baseFolder));
    evaluated_ = true;
  }

  uint64_t GetTotalSize() override {
    uint64_t total = 0;
    for (const std::string& file : Files()) {
      uint64_t size = 0;
      if (host_.GetPlatform().entries->GetSize(file, size)) total += size;
    }
    return total;
  }

  std::string GetBaseDirectory() override { return declaration_.baseDirectory; }
  StringList GetIncludes() override { return declaration_.includes; }
  std::string GetFileList(std::string_view separator) override { return JoinLines(Files(), separator); }

 private:
  const StringList& Files() {
    if (!evaluated_) Refresh();
    return files_;
  }

  IVekActionHost& host_;
  FileSetDeclaration declaration_;
  const FileSetDeclaration*& beingRead_;
  StringList files_;
  bool evaluated_ = false;
};

FileSets::FileSets(IVekActionHost& host) : host_(host) {}
FileSets::~FileSets() = default;

void FileSets::Declare(const std::vector<FileSetDeclaration>& declarations) {
  sets_.clear();
  for (const FileSetDeclaration& declaration : declarations) {
    sets_.push_back(std::make_unique<ProjectFileSet>(host_, declaration, beingRead_));
  }
}

IVekProjectObject* FileSets::FindObject(std::string_view name, std::string_view objectType) {
  if (objectType != kFileSetObject) return nullptr;
  const auto found =
      std::ranges::find_if(sets_, [name](const auto& set) { return SameText(set->Name(), name); });
  return found == sets_.end() ? nullptr : found->get();
}
