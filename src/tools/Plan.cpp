#include "tools/Plan.h"

#include <unordered_map>

#include "platform/FileAttributes.h"

namespace {

bool IsFolderEntry(const FoundEntry& entry) { return (entry.attributes & FileAttribute::Directory) != 0; }

bool IsLinkEntry(const FoundEntry& entry) { return (entry.attributes & FileAttribute::ReparsePoint) != 0; }

/// The destination's entries by name: as it stands, or else in other letters where no other entry of the
/// source has that name as it stands.
class Counterparts {
 public:
  Counterparts(const std::vector<FoundEntry>& targets, const std::vector<FoundEntry>& sources)
      : targets_(targets), taken_(targets.size()), left_(targets.size()) {
    for (size_t i = 0; i < targets.size(); ++i) byName_.emplace(targets[i].name, i);
    for (const FoundEntry& source : sources) {
      const auto exact = byName_.find(source.name);
      if (exact == byName_.end()) continue;
      taken_[exact->second] = true;
      --left_;
    }
    if (left_ > 0) IndexOtherCase();
  }

  const FoundEntry* Find(const FoundEntry& source) {
    const auto exact = byName_.find(source.name);
    if (exact != byName_.end()) return &targets_[exact->second];
    if (left_ == 0) return nullptr;
    const auto other = byUpperName_.find(UpCase(source.name));
    if (other == byUpperName_.end() || taken_[other->second]) return nullptr;
    taken_[other->second] = true;
    --left_;
    return &targets_[other->second];
  }

  bool IsTaken(size_t index) const { return taken_[index]; }

 private:
  void IndexOtherCase() {
    for (size_t i = 0; i < targets_.size(); ++i) {
      if (!taken_[i]) byUpperName_.emplace(UpCase(targets_[i].name), i);
    }
  }

  const std::vector<FoundEntry>& targets_;
  std::vector<bool> taken_;
  size_t left_;  // not taken
  std::unordered_map<std::string_view, size_t> byName_;
  std::unordered_map<std::string, size_t> byUpperName_;
};

}  // namespace

bool ExtraStep::IsFolder() const { return IsFolderEntry(entry); }

SysResult Planner::List(std::string_view folder, std::vector<FoundEntry>& entries) const {
  constexpr uint32_t kAll = FileAttribute::AnyFile;
  SysResult opened;
  const auto search = platform_.finder->Open(std::string(folder) + '*', kAll, detail_, opened);
  if (!opened && opened.code != Win32Error::FileNotFound) return opened;
  for (FoundEntry entry; search->Next(entry);) {
    if (entry.name != "." && entry.name != "..") entries.push_back(std::move(entry));
  }
  return search->Result();
}

FolderPlan Planner::Plan(const FolderPair& folders, bool goesDeeper) const {
  FolderPlan plan;
  std::vector<FoundEntry> sources, targets;
  plan.sourceListed = List(folders.source, sources);
  if (folders.targetExists) plan.targetListed = List(folders.target, targets);
  Counterparts counterparts(targets, sources);

  for (FoundEntry& source : sources) {
    const bool isFolder = IsFolderEntry(source);
    const FoundEntry* counterpart = counterparts.Find(source);
    std::string target = counterpart != nullptr ? counterpart->name : source.name;
    if (isFolder) {
      const bool isLeft =
          selection_.LeavesFolder(source) || selection_.IsExcludedFolder(folders.source, source.name);
      if (!entersFolders_ || !goesDeeper || isLeft) continue;
      const bool isMismatch = counterpart != nullptr && !IsFolderEntry(*counterpart);
      const bool meetsLink = counterpart != nullptr && IsLinkEntry(*counterpart);
      plan.folders.push_back({std::move(source.name), std::move(target), IsLinkEntry(source),
                              counterpart != nullptr, isMismatch, meetsLink});
    } else if (selection_.IsNamed(source.name)) {
      const FileClass fileClass = selection_.Classify(folders.source, source, counterpart);
      plan.files.push_back({std::move(source), fileClass, std::move(target), counterpart != nullptr});
    }
  }
  // What was not listed may be there.
  if (!plan.sourceListed) return plan;
  for (size_t i = 0; i < targets.size(); ++i) {
    if (counterparts.IsTaken(i)) continue;
    FoundEntry& target = targets[i];
    const bool isFolder = IsFolderEntry(target);
    if (isFolder && (!entersFolders_ || !goesDeeper)) continue;
    const bool isSelected = isFolder ? !selection_.IsExcludedFolder(folders.target, target.name)
                                     : !selection_.IsKept(folders.target, target.name);
    plan.extras.push_back({std::move(target), isSelected});
  }
  return plan;
}
