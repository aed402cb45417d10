#include "tools/TreeCopy.h"

#include <algorithm>

#include "base/WindowsPath.h"
#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/FileAttributes.h"
#include "platform/Folders.h"
#include "platform/Presence.h"
#include "platform/ProtectedFolders.h"

TreeCopy::TreeCopy(const Platform& platform, const Selection& selection, const CopyRules& rules,
                   Report& report, Interruption& interruption)
    : platform_(platform),
      selection_(selection),
      rules_(rules),
      report_(report),
      interruption_(interruption),
      planner_(platform, selection, rules.entersFolders, rules.looksAtAttributes),
      transfer_(platform, rules, interruption),
      purge_(platform, selection, planner_, interruption),
      sequence_(rules.threads) {}

Totals TreeCopy::Run(const std::string& source, const std::string& target) {
  const double start = platform_.clock->Seconds();
  const FolderPaths roots{source, target};
  if (!CheckRoots(roots)) {
    totals_.isFatal = true;
    return totals_;
  }
  const bool exists = FolderMayExist(platform_, target);
  Enter({std::make_shared<FolderPaths>(roots), false, exists, !exists});
  while (!levels_.empty()) {
    Level& level = levels_.back();
    if (level.next < level.folders.size() && !Ends()) {
      EnterNext();
    } else {
      Leave();
    }
  }
  sequence_.Drain();
  totals_.copySeconds = platform_.clock->Seconds() - start;
  return totals_;
}

/// Whether the run may begin; says why not.
bool TreeCopy::CheckRoots(const FolderPaths& roots) {
  const auto refuse = [&](const std::string& folder) {
    const std::string shown(WithoutTrailingDelimiter(folder));
    report_.OnRefused("Refused : " + (shown.empty() ? folder : shown) +
                      " is protected (--no-preserve-root allows it)");
    return false;
  };
  const auto isProtected = [&](const std::string& folder) {
    const auto isIt = [&](const std::string& file) { return IsProtectedTree(platform_, folder, file); };
    return !rules_.allowsProtected && (isIt({}) || std::ranges::any_of(rules_.protectedFiles, isIt));
  };
  if (!platform_.folders->Exists(roots.source)) {
    const std::string path(WithoutTrailingDelimiter(roots.source));
    const bool isFile = platform_.entries->FileExists(path);
    report_.OnError(isFile ? Win32Error::Directory : Win32Error::FileNotFound, "Accessing Source Directory",
                    roots.source);
    return false;
  }
  if (rules_.purges && isProtected(roots.target)) return refuse(roots.target);
  const bool movesTree = rules_.movesFolders || (rules_.movesFiles && rules_.entersFolders);
  if (movesTree && isProtected(roots.source)) return refuse(roots.source);
  const bool isSame = platform_.entries->Identity(roots.source) == platform_.entries->Identity(roots.target);
  if (rules_.purges && !isSame && HoldsFolder(platform_, roots.target, roots.source)) {
    report_.OnRefused("Refused : " + roots.source +
                      " lies in the destination, which it would be removed from");
    return false;
  }
  guardsTarget_ = !isSame && HoldsFolder(platform_, roots.source, roots.target);
  return true;
}

void TreeCopy::Enter(Level level) {
  levels_.push_back(std::move(level));
  Level& entered = levels_.back();
  if (entered.isNew && (rules_.makesEmptyFolders || levels_.size() == 1) && !MakeTarget()) {
    totals_.isFatal = totals_.isFatal || levels_.size() == 1;
    return;
  }
  const bool goesDeeper = rules_.levels == 0 || levels_.size() < rules_.levels;
  FolderPlan plan = planner_.Plan(
      {entered.paths->source, entered.paths->target, entered.exists && !entered.isNew}, goesDeeper);
  if (EnterPlan(plan)) entered.folders = std::move(plan.folders);
}

/// Hands over all that is to be done in the folder itself; false when nothing is known of it.
bool TreeCopy::EnterPlan(FolderPlan& plan) {
  const Paths& paths = levels_.back().paths;
  const bool isNew = levels_.back().isNew;
  sequence_.Add({}, [this, paths, isNew, files = plan.files.size()] {
    ++totals_.folders.total;
    report_.OnFolder(paths->source, isNew, files);
  });
  const auto tell = [&](SysResult listed, std::string_view what, const std::string& path) {
    if (listed) return true;
    sequence_.Add({}, [this, listed, what, path] {
      ++totals_.folders.failed;
      Fail(listed.code, what, path);
    });
    return false;
  };
  tell(plan.sourceListed, "Scanning Source Directory", paths->source);
  if (!tell(plan.targetListed, "Scanning Destination Directory", paths->target)) return false;
  for (ExtraStep& extra : plan.extras) AddExtra(paths, std::move(extra));
  if (!rules_.copiesFiles) {
    const auto isMeant = [this](const FileStep& step) { return selection_.Copies(step.fileClass); };
    return std::ranges::none_of(plan.files, isMeant) || MakeTarget();
  }
  for (FileStep& step : plan.files) {
    if (Ends()) break;
    const bool copies = selection_.Copies(step.fileClass) && rules_.ChangesFile(step.exists);
    if (copies && !MakeTarget()) return false;
    step.stays = levels_.back().staysAtSource;
    if (copies && !rules_.listsOnly) {
      Bring(paths, std::move(step));
    } else {
      Skip(paths, std::move(step), copies);
    }
  }
  return true;
}

void TreeCopy::EnterNext() {
  Level& level = levels_.back();
  const FolderStep& step = level.folders[level.next++];
  const char delimiter = level.paths->source.back();
  auto paths = std::make_shared<FolderPaths>(level.paths->source + step.name + delimiter,
                                             level.paths->target + step.target + delimiter);
  if (step.isMismatch) {
    sequence_.Add({}, [this, paths] {
      ++totals_.folders.total;
      ++totals_.folders.mismatched;
      report_.OnFolderMismatch(paths->source);
    });
    return;
  }
  const bool replacesLink = step.meetsLink && rules_.purges && selection_.Copies(FileClass::Extra);
  const bool exists = step.exists && !replacesLink;
  const bool stays = level.staysAtSource || step.isLink;
  Level below{std::move(paths), step.isLink, exists, !exists, replacesLink, stays};
  if (!LeadsBack(below)) Enter(std::move(below));
}

/// Whether the way would never end: a link to a folder that it has come through, and the destination itself.
bool TreeCopy::LeadsBack(const Level& level) const {
  if (!level.isLink && !guardsTarget_) return false;
  const auto identity = platform_.entries->Identity(level.paths->source);
  if (!identity) return false;
  if (identity == platform_.entries->Identity(levels_.front().paths->target)) return true;
  return level.isLink && std::ranges::any_of(levels_, [&](const Level& above) {
           return platform_.entries->Identity(above.paths->source) == identity;
         });
}

void TreeCopy::Leave() {
  const Level& level = levels_.back();
  const bool isMade = level.isNew && level.exists;
  const bool copiesAttributes = isMade && rules_.copiesAttributes && !rules_.listsOnly;
  const bool removes = rules_.movesFolders && !rules_.listsOnly && !level.staysAtSource && !Ends();
  sequence_.Add({}, [this, paths = level.paths, isMade, copiesAttributes, removes] {
    if (copiesAttributes) CopyAttributes(*paths);
    const SysResult removed = removes ? platform_.folders->Remove(paths->source) : SysResult();
    // What was skipped keeps its folder.
    const bool stays = !removed && removed.code != Win32Error::DirNotEmpty;
    if (stays) Fail(removed.code, "Deleting Source Directory", paths->source);
    Tally& folders = totals_.folders;
    ++(stays ? folders.failed : isMade ? folders.copied : folders.skipped);
  });
  levels_.pop_back();
}

/// Of a folder, once it holds all it is to hold: it may be read-only from then on.
void TreeCopy::CopyAttributes(const FolderPaths& paths) {
  constexpr uint32_t kSettable =
      FileAttribute::ReadOnly | FileAttribute::Hidden | FileAttribute::System | FileAttribute::Archive;
  uint32_t from = 0, to = 0;
  if (!platform_.entries->GetAttributes(paths.source, from)) return;
  if (!platform_.entries->GetAttributes(paths.target, to) || ((from ^ to) & kSettable) == 0) return;
  const SysResult set = platform_.entries->SetAttributes(paths.target, from & kSettable);
  if (!set) Fail(set.code, "Setting Attributes of Destination Directory", paths.target);
}

SysResult TreeCopy::MakeFolders() {
  for (Level& level : levels_) {
    if (level.exists || rules_.listsOnly) {
      level.exists = true;
      continue;
    }
    const std::string& path = level.paths->target;
    // What the link leads to is not the destination's to purge.
    if (level.replacesLink) {
      const SysResult removed = platform_.entries->Delete(WithoutTrailingDelimiter(path));
      if (!removed && removed.code != Win32Error::FileNotFound) return removed;
      level.replacesLink = false;
    }
    const SysResult made = &level == &levels_.front() ? platform_.folders->CreateWithParents(path)
                                                      : platform_.folders->CreateAsWritten(path);
    if (!made && !(made.code == Win32Error::AlreadyExists && platform_.folders->Exists(path))) return made;
    level.exists = true;
  }
  return {};
}

/// Makes the folder at the destination, and those above it that are missing.
bool TreeCopy::MakeTarget() {
  Level& level = levels_.back();
  if (level.exists) return true;
  const auto make = [&] { return MakeFolders(); };
  SysResult made = make();
  if (made) return true;
  sequence_.Drain();
  if (Retry(make, made, "Creating Destination Directory", level.paths->target)) return true;
  ++totals_.folders.failed;
  return false;
}

/// Tells of a failure and tries again as often as the rules say; false when that did not help.
bool TreeCopy::Retry(const std::function<SysResult()>& attempt, SysResult result, std::string_view what,
                     const std::string& path) {
  for (uint64_t tries = 0; !result; ++tries) {
    if (result.code == Win32Error::RequestAborted || interruption_.IsSignalled()) return false;
    Fail(result.code, what, path);
    if (tries == rules_.retries) {
      if (rules_.retries > 0) report_.OnGivenUp();
      return false;
    }
    report_.OnRetry(rules_.waitSeconds);
    if (!interruption_.Wait(rules_.waitSeconds)) return false;
    result = attempt();
  }
  return true;
}

void TreeCopy::Skip(const Paths& paths, FileStep step, bool copies) {
  sequence_.Add({}, [this, paths, copies, step = std::move(step)] {
    report_.OnFile(paths->source, paths->target, step, copies);
    Count(step, step.fileClass == FileClass::Mismatch ? &Tally::mismatched
                : copies                              ? &Tally::copied
                                                      : &Tally::skipped);
  });
}

void TreeCopy::Bring(const Paths& paths, FileStep step) {
  struct Job {
    FileStep step;
    SysResult result;
  };
  const auto job = std::make_shared<Job>(Job{std::move(step), {}});
  const auto attempt = [this, paths, job] {
    return transfer_.Run(paths->source + job->step.file.name, paths->target + job->step.target, job->step);
  };
  sequence_.Add([job, attempt] { job->result = attempt(); },
                [this, paths, job, attempt] {
                  if (job->result.code == Win32Error::RequestAborted) return;
                  report_.OnFile(paths->source, paths->target, job->step, true);
                  const std::string path = paths->source + job->step.file.name;
                  const std::string_view what = rules_.movesFiles ? "Moving File" : "Copying File";
                  const bool isLink = (job->step.file.attributes & FileAttribute::ReparsePoint) != 0;
                  // Waiting does not help a link that leads nowhere.
                  const bool isHopeless = isLink && job->result.code == Win32Error::FileNotFound;
                  if (isHopeless) Fail(job->result.code, what, path);
                  const bool copied = !isHopeless && Retry(attempt, job->result, what, path);
                  Count(job->step, copied ? &Tally::copied : &Tally::failed);
                  if (!copied && rules_.stopsAtError) totals_.isFatal = true;
                });
}

void TreeCopy::Count(const FileStep& step, uint64_t Tally::*what) {
  ++totals_.files.total;
  ++(totals_.files.*what);
  totals_.bytes.total += step.file.size;
  totals_.bytes.*what += step.file.size;
}

void TreeCopy::AddExtra(const Paths& paths, ExtraStep extra) {
  const bool isReported = selection_.Copies(FileClass::Extra);
  if (!isReported) return;
  sequence_.Add({}, [this, paths, extra = std::move(extra)] {
    report_.OnExtra(paths->target, extra);
    if (!extra.isSelected) return;
    ++(extra.IsFolder() ? totals_.folders : totals_.files).extra;
    totals_.bytes.extra += extra.entry.size;
    if (!rules_.purges || rules_.listsOnly || Ends()) return;
    const std::string path = paths->target + extra.entry.name;
    const auto remove = [&] { return purge_.Remove(path, extra.entry); };
    const std::string_view what = extra.IsFolder() ? "Deleting Extra Directory" : "Deleting Extra File";
    if (!Retry(remove, remove(), what, path)) ++(extra.IsFolder() ? totals_.folders : totals_.files).failed;
  });
}

void TreeCopy::Fail(Win32Error code, std::string_view what, const std::string& path) {
  report_.OnError(code, what, path);
}
