#include "platform/posix/system/PosixErrors.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

struct ErrnoRow {
  int error;
  Win32Error code;
};

// A missing folder on the way is told apart by who opens folders: ENOENT alone means the entry itself.
constexpr ErrnoRow kErrnos[] = {
    {0, Win32Error::Success},
    {ENOENT, Win32Error::FileNotFound},
    {ENOTDIR, Win32Error::PathNotFound},
    {EMFILE, Win32Error::TooManyOpenFiles},
    {ENFILE, Win32Error::TooManyOpenFiles},
    {EACCES, Win32Error::AccessDenied},
    {EPERM, Win32Error::AccessDenied},
    {EISDIR, Win32Error::AccessDenied},
    {EBADF, Win32Error::InvalidHandle},
    {ENOMEM, Win32Error::NotEnoughMemory},
    {EXDEV, Win32Error::NotSameDevice},
    {EROFS, Win32Error::WriteProtect},
    {EAGAIN, Win32Error::SharingViolation},
    {ETXTBSY, Win32Error::SharingViolation},
    {EBUSY, Win32Error::SharingViolation},
    {EDEADLK, Win32Error::LockViolation},
    {EOPNOTSUPP, Win32Error::NotSupported},
    {ENOSYS, Win32Error::NotSupported},
    {EINVAL, Win32Error::InvalidParameter},
    {EPIPE, Win32Error::BrokenPipe},
    {ENOSPC, Win32Error::DiskFull},
    {EDQUOT, Win32Error::DiskFull},
    {EFBIG, Win32Error::DiskFull},
    {EILSEQ, Win32Error::InvalidName},
    {ENOTEMPTY, Win32Error::DirNotEmpty},
    {EEXIST, Win32Error::AlreadyExists},
    {ENOEXEC, Win32Error::BadExeFormat},
    {ENAMETOOLONG, Win32Error::FilenameExcedRange},
    {E2BIG, Win32Error::FilenameExcedRange},
    {ECANCELED, Win32Error::RequestAborted},
    {ELOOP, Win32Error::CantResolveFilename},
    {ENXIO, Win32Error::NotReady},
    {ENODEV, Win32Error::NotReady},
};

struct TextRow {
  Win32Error code;
  std::string_view text;
};

constexpr TextRow kTexts[] = {
    {Win32Error::Success, "The operation completed successfully."},
    {Win32Error::InvalidFunction, "Incorrect function."},
    {Win32Error::FileNotFound, "The system cannot find the file specified."},
    {Win32Error::PathNotFound, "The system cannot find the path specified."},
    {Win32Error::TooManyOpenFiles, "The system cannot open the file."},
    {Win32Error::AccessDenied, "Access is denied."},
    {Win32Error::InvalidHandle, "The handle is invalid."},
    {Win32Error::NotEnoughMemory, "Not enough memory resources are available to process this command."},
    {Win32Error::InvalidData, "The data is invalid."},
    {Win32Error::InvalidDrive, "The system cannot find the drive specified."},
    {Win32Error::CurrentDirectory, "The directory cannot be removed."},
    {Win32Error::NotSameDevice, "The system cannot move the file to a different disk drive."},
    {Win32Error::NoMoreFiles, "There are no more files."},
    {Win32Error::WriteProtect, "The media is write protected."},
    {Win32Error::NotReady, "The device is not ready."},
    {Win32Error::GeneralFailure, "A device attached to the system is not functioning."},
    {Win32Error::SharingViolation,
     "The process cannot access the file because it is being used by another process."},
    {Win32Error::LockViolation,
     "The process cannot access the file because another process has locked a portion of the file."},
    {Win32Error::HandleEof, "Reached the end of the file."},
    {Win32Error::HandleDiskFull, "The disk is full."},
    {Win32Error::NotSupported, "The request is not supported."},
    {Win32Error::FileExists, "The file exists."},
    {Win32Error::InvalidParameter, "The parameter is incorrect."},
    {Win32Error::BrokenPipe, "The pipe has been ended."},
    {Win32Error::DiskFull, "There is not enough space on the disk."},
    {Win32Error::InvalidName, "The filename, directory name, or volume label syntax is incorrect."},
    {Win32Error::ModuleNotFound, "The specified module could not be found."},
    {Win32Error::ProcNotFound, "The specified procedure could not be found."},
    {Win32Error::DirNotEmpty, "The directory is not empty."},
    {Win32Error::Busy, "The requested resource is in use."},
    {Win32Error::AlreadyExists, "Cannot create a file when that file already exists."},
    {Win32Error::BadExeFormat, "%1 is not a valid Win32 application."},
    {Win32Error::FilenameExcedRange, "The filename or extension is too long."},
    {Win32Error::Directory, "The directory name is invalid."},
    {Win32Error::BadRegistry, "The configuration registry database is corrupt."},
    {Win32Error::NoAssociation, "No application is associated with the specified file for this operation."},
    {Win32Error::Cancelled, "The operation was canceled by the user."},
    {Win32Error::RequestAborted, "The request was aborted."},
    {Win32Error::CantResolveFilename, "The name of the file cannot be resolved by the system."},
};

}  // namespace

Win32Error FromErrno(int error) {
  const auto* row = std::find_if(std::begin(kErrnos), std::end(kErrnos),
                                 [error](const ErrnoRow& r) { return r.error == error; });
  return row == std::end(kErrnos) ? Win32Error::GeneralFailure : row->code;
}

std::string PosixErrorTexts::Text(Win32Error code) {
  const auto* row =
      std::find_if(std::begin(kTexts), std::end(kTexts), [code](const TextRow& r) { return r.code == code; });
  if (row != std::end(kTexts)) return std::string(row->text);
  return "Unknown error " + std::to_string(static_cast<uint32_t>(code)) + ".";
}
