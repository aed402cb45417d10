#include "tools/FileTransfer.h"

#include "platform/Entries.h"
#include "platform/FileAttributes.h"

namespace {

constexpr uint32_t kSettable =
    FileAttribute::ReadOnly | FileAttribute::Hidden | FileAttribute::System | FileAttribute::Archive;
constexpr uint64_t kPacket = 65536;

}  // namespace

SysResult FileTransfer::Run(const std::string& source, const std::string& target,
                            const FileStep& step) const {
  if (interruption_.IsSignalled()) return SysResult::Failure(Win32Error::RequestAborted);
  uint32_t old = 0;
  if (step.exists) {
    if (const SysResult read = platform_.entries->GetAttributes(target, old); !read) return read;
  }
  if (!rules_.copiesData) return step.exists ? SetProperties(source, target, step, old) : SysResult();
  if ((old & FileAttribute::ReadOnly) != 0 && !rules_.overwritesReadOnly) {
    return SysResult::Failure(Win32Error::AccessDenied);
  }
  // A copy does not replace a file that is protected by its attributes.
  const bool isProtected = IsProtected(source, old);
  if (isProtected) {
    const SysResult cleared = platform_.entries->SetAttributes(target, FileAttribute::Normal);
    if (!cleared) return cleared;
  }
  const SysResult brought = Bring(source, target, step);
  if (!brought && isProtected) platform_.entries->SetAttributes(target, old);
  return brought ? SetProperties(source, target, step, old) : brought;
}

/// Whether a file with these attributes would not make way for the source.
bool FileTransfer::IsProtected(const std::string& source, uint32_t old) const {
  if ((old & FileAttribute::ReadOnly) != 0) return true;
  constexpr uint32_t kMustAgree = FileAttribute::Hidden | FileAttribute::System;
  uint32_t attributes = 0;
  if ((old & kMustAgree) == 0 || !platform_.entries->GetAttributes(source, attributes)) return false;
  return (old & ~attributes & kMustAgree) != 0;
}

SysResult FileTransfer::Bring(const std::string& source, const std::string& target,
                              const FileStep& step) const {
  if (!rules_.movesFiles || step.stays) return Copy(source, target);
  if ((step.file.attributes & FileAttribute::ReparsePoint) == 0) {
    const uint32_t replaces = step.exists ? MoveFlag::ReplaceExisting : 0;
    const SysResult moved = platform_.entries->Move(source, target, MoveFlag::CopyAllowed | replaces);
    // What stands in the way of a new file is one whose name differs in case.
    if (moved || moved.code != Win32Error::AlreadyExists) return moved;
  }
  const SysResult copied = Copy(source, target);
  if (!copied) return copied;
  if ((step.file.attributes & FileAttribute::ReadOnly) != 0) {
    platform_.entries->SetAttributes(source, FileAttribute::Normal);
  }
  return platform_.entries->Delete(source);
}

SysResult FileTransfer::Copy(const std::string& source, const std::string& target) const {
  CopyOptions options{.targetAsWritten = true, .cancel = interruption_.Flag()};
  uint64_t before = 0;
  if (rules_.gapSeconds > 0) {
    options.progress = [&](uint64_t transferred, uint64_t) {
      const uint64_t packets = (transferred - before + kPacket - 1) / kPacket;
      before = transferred;
      if (packets > 0) interruption_.Wait(static_cast<double>(packets) * rules_.gapSeconds);
    };
  }
  const SysResult copied = platform_.entries->Copy(source, target, options);
  return copied && rules_.verifiesSize ? Verify(source, target) : copied;
}

SysResult FileTransfer::Verify(const std::string& source, const std::string& target) const {
  uint64_t from = 0, to = 0;
  if (const SysResult read = platform_.entries->GetSize(source, from); !read) return read;
  if (const SysResult read = platform_.entries->GetSize(target, to); !read) return read;
  return from == to ? SysResult() : SysResult::Failure(Win32Error::InvalidData);
}

SysResult FileTransfer::SetProperties(const std::string& source, const std::string& target,
                                      const FileStep& step, uint32_t old) const {
  const uint32_t copied = step.file.attributes & kSettable;
  // A name that hides by itself goes on doing so.
  const uint32_t own = step.exists                    ? old & kSettable
                       : step.target.starts_with('.') ? copied & FileAttribute::Hidden
                                                      : 0;
  const uint32_t base = rules_.copiesAttributes ? copied : own;
  const uint32_t wanted = ((base | rules_.addedAttributes) & ~rules_.removedAttributes) & kSettable;
  const uint32_t present = rules_.copiesData ? copied : old & kSettable;
  if (wanted != present) {
    const SysResult set = platform_.entries->SetAttributes(target, wanted);
    if (!set) return set;
  }
  const bool clears = rules_.clearsArchive && (!rules_.movesFiles || step.stays);
  if (!clears || (copied & FileAttribute::Archive) == 0) return {};
  return platform_.entries->SetAttributes(source, copied & ~FileAttribute::Archive);
}
