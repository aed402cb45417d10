#include "platform/posix/files/Rewrite.h"

#include <cerrno>
#include <fcntl.h>

#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/files/PosixOpenFile.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

class PosixNewContents final : public NewContents {
 public:
  PosixNewContents(PosixPaths& paths, RewriteTarget target)
      : paths_(paths), target_(std::move(target)), new_(target_.place) {}

  SysResult Create() {
    if (!new_.CreateUnseen(target_.ModeUntilDone())) return LastFailure();
    UniqueFd same(fcntl(new_.Fd(), F_DUPFD_CLOEXEC, 0));
    if (!same) return LastFailure();
    file_ = TakeOpen(std::move(same));
    return {};
  }

  OpenFile& File() override { return *file_; }

  SysResult Commit() override {
    file_.reset();
    DiskChange change(paths_, target_.place, DiskChange::File);
    return TakePlace(new_, target_, change);
  }

 private:
  PosixPaths& paths_;
  RewriteTarget target_;
  NewFile new_;
  std::unique_ptr<OpenFile> file_;
};

}  // namespace

SysResult FindRewriteTarget(const Place& place, RewriteTarget& target) {
  if (!place.folder) return SysResult::Failure(place.error);
  target.place = place;
  target.old = OpenTarget(place);
  if (!target.old && errno == ENOENT) return {};
  // Nobody reads at the other end of a pipe.
  if (!target.old && errno == ENXIO) return SysResult::Failure(Win32Error::NotSupported);
  if (!target.old || fstat(target.old.Get(), &target.status) != 0) return LastFailure();
  if (!S_ISREG(target.status.st_mode)) return SysResult::Failure(Win32Error::NotSupported);
  if (IsReadOnly(target.status)) return SysResult::Failure(Win32Error::AccessDenied);
  return MayUse(target.old.Get()) ? SysResult() : LastFailure();
}

SysResult TakePlace(NewFile& file, const RewriteTarget& target, DiskChange& change) {
  const std::string& name = target.place.name;
  if (target.old) {
    const bool done = CopyProperties(target.old.Get(), target.status, file.Fd()) && file.TakePlaceOf(name);
    return done ? SysResult() : LastFailure();
  }
  // Another that is quicker to make the file loses to this one.
  if (!file.KeepAs(name) && (errno != EEXIST || !file.TakePlaceOf(name))) return LastFailure();
  change.Added(name);
  return {};
}

SysResult BeginRewrite(PosixPaths& paths, std::string_view path, std::unique_ptr<NewContents>& contents) {
  RewriteTarget target;
  if (const SysResult found = FindRewriteTarget(FinalPlace(paths, path), target); !found) return found;
  if (target.old) paths.SweepOnce(*target.place.folder);
  auto made = std::make_unique<PosixNewContents>(paths, std::move(target));
  const SysResult created = made->Create();
  if (created) contents = std::move(made);
  return created;
}
