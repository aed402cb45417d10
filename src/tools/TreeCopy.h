#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Entries.h"
#include "tools/CopyRules.h"
#include "tools/FileTransfer.h"
#include "tools/Purge.h"
#include "tools/Report.h"
#include "tools/Sequence.h"

/// Copies, mirrors or moves a tree: plans a folder, has its files brought over and goes on to its
/// sub-folders.
class TreeCopy {
 public:
  TreeCopy(const Platform& platform, const Selection& selection, const CopyRules& rules, Report& report,
           Interruption& interruption);

  /// Both are full paths that end in a delimiter; the destination is made where it is missing.
  Totals Run(const std::string& source, const std::string& target);

 private:
  struct FolderPaths {
    std::string source, target;
  };
  using Paths = std::shared_ptr<const FolderPaths>;

  /// A folder on the way from the top to where the work is.
  struct Level {
    Paths paths;
    bool isLink = false;
    bool exists = true;  // at the destination
    bool isNew = false;
    bool replacesLink = false;   // a purge makes a folder where the destination has a link to one
    bool staysAtSource = false;  // reached through a link, which is not moved
    std::vector<FolderStep> folders = {};
    size_t next = 0;
  };

  bool CheckRoots(const FolderPaths& roots);
  void Enter(Level level);
  void EnterNext();
  void Leave();
  bool EnterPlan(FolderPlan& plan);
  void CopyAttributes(const FolderPaths& paths);
  bool LeadsBack(const Level& level) const;

  bool MakeTarget();
  SysResult MakeFolders();
  bool Retry(const std::function<SysResult()>& attempt, SysResult result, std::string_view what,
             const std::string& path);
  void Skip(const Paths& paths, FileStep step, bool copies);
  void Bring(const Paths& paths, FileStep step);
  void Count(const FileStep& step, uint64_t Tally::*what);
  void AddExtra(const Paths& paths, ExtraStep extra);
  void Fail(Win32Error code, std::string_view what, const std::string& path);
  bool Ends() const { return totals_.isFatal || interruption_.IsSignalled(); }

  const Platform& platform_;
  const Selection& selection_;
  const CopyRules& rules_;
  Report& report_;
  Interruption& interruption_;
  Planner planner_;
  FileTransfer transfer_;
  Purge purge_;
  Totals totals_;
  std::vector<Level> levels_;
  bool guardsTarget_ = false;  // the destination lies in the source
  std::optional<EntryIdentity> target_;
  Sequence sequence_;  // last, so that its steps end while all they use is there
};
