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

SysResult FindRewriteTarget(PosixPaths& paths, std::string_view path, RewriteTarget& target) {
  target.place = paths.Locate(path);
  if (!target.place.folder) return SysResult::Failure(target.place.error);
  UniqueFd& old = target.old;
  old = OpenTarget(target.place);
  if (!old && errno == ENOENT && paths.OtherCase(target.place)) old = OpenTarget(target.place);
  for (int links = 0; !old && errno == ELOOP; ++links) {
    if (links == kMostLinks || !FollowLink(target.place)) return LastFailure();
    old = OpenTarget(target.place);
  }
  if (!old && errno == ENOENT) return {};
  if (!old || fstat(old.Get(), &target.status) != 0) return LastFailure();
  if (IsReadOnly(target.status)) return SysResult::Failure(Win32Error::AccessDenied);
  return MayUse(old.Get()) ? SysResult() : LastFailure();
}

SysResult TakePlace(NewFile& file, const RewriteTarget& target, DiskChange& change) {
  if (target.old && !CopyProperties(target.old.Get(), target.status, file.Fd())) return LastFailure();
  if (!file.TakePlaceOf(target.place.name)) return LastFailure();
  if (!target.old) change.Added(target.place.name);
  return {};
}

SysResult BeginRewrite(PosixPaths& paths, std::string_view path, std::unique_ptr<NewContents>& contents) {
  RewriteTarget target;
  if (const SysResult found = FindRewriteTarget(paths, path, target); !found) return found;
  if (target.old && !S_ISREG(target.status.st_mode)) return SysResult::Failure(Win32Error::AccessDenied);
  auto made = std::make_unique<PosixNewContents>(paths, std::move(target));
  const SysResult created = made->Create();
  if (created) contents = std::move(made);
  return created;
}
