#pragma once

#include <atomic>
#include <compare>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "base/DateTime.h"
#include "base/Win32Error.h"

/// Told how far a copy or a move is, in bytes.
using CopyProgress = std::function<void(uint64_t transferred, uint64_t total)>;

/// Makes a last write from the one before; both are local dates and times.
using LastWriteChange = std::function<TDateTime(TDateTime lastWrite)>;

struct CopyOptions {
  bool failIfExists = false;                  // FileExists instead of replacing the target
  bool targetAsWritten = false;               // a file of the name in other letters is not the target
  const std::atomic<bool>* cancel = nullptr;  // polled between chunks; ends the copy with RequestAborted
  CopyProgress progress = {};
};

/// How a move treats its target, numbered as Windows numbers them.
namespace MoveFlag {
inline constexpr uint32_t ReplaceExisting = 0x1;
inline constexpr uint32_t CopyAllowed = 0x2;   // to another volume, by copying and deleting
inline constexpr uint32_t WriteThrough = 0x8;  // such a copy is on the disk before the source goes
}  // namespace MoveFlag

/// What tells two entries apart whatever they are called.
struct EntryIdentity {
  uint64_t volume = 0;
  uint64_t index = 0;
  auto operator<=>(const EntryIdentity&) const = default;
};

/// What stands on the disk, by path. Paths are Windows paths (see base/WindowsPath.h); names are matched
/// exactly first, then without regard to case. A path that ends in a delimiter never names a file: as the
/// source of a copy or a move such a file is PathNotFound, as the target AccessDenied where a folder stands,
/// else PathNotFound. Operations answer with the system's error code.
class Entries {
 public:
  virtual ~Entries() = default;

  virtual bool FileExists(std::string_view path) = 0;

  /// Whether an entry stands on the disk in exactly this spelling; a link counts as the link itself.
  virtual bool EntryExists(std::string_view path) = 0;

  /// Whether a copy or a move of `source` to `target` would come upon a file. Where two spellings of a name
  /// can stand beside each other, what became of one of a folder's files is not in the way of another.
  virtual bool TargetExists(std::string_view source, std::string_view target) = 0;

  /// Why a file could not make way for another that is moved to its place, or success.
  virtual SysResult CheckReplace(std::string_view path) = 0;

  /// The identity of what the path leads to, links followed; nothing when it leads nowhere.
  virtual std::optional<EntryIdentity> Identity(std::string_view path) = 0;

  /// Reports the size of a file in bytes.
  virtual SysResult GetSize(std::string_view path, uint64_t& size) = 0;

  /// Reports the attribute bits (Normal when none is set).
  virtual SysResult GetAttributes(std::string_view path, uint32_t& attributes) = 0;

  /// Writes read-only, hidden, system and archive as given; Normal or 0 clears them. Fails with the system's
  /// error where the file system cannot store a bit that is to be set. A link stores none of its own (a
  /// change is NotSupported), and what it leads to is not touched.
  virtual SysResult SetAttributes(std::string_view path, uint32_t attributes) = 0;

  /// Changes when a file was last written. Refused as opening it for writing beside others would be:
  /// AccessDenied for a folder and a read-only file, SharingViolation where another open stands against it.
  virtual SysResult ChangeLastWrite(std::string_view path, const LastWriteChange& change) = 0;

  /// Deletes a file or a link. A read-only one and a folder are refused with AccessDenied.
  virtual SysResult Delete(std::string_view path) = 0;

  /// Copies a file with its last-write time and attributes, those that the target's file system can store;
  /// links are followed. A target that exists is replaced by the whole new file, keeping who may use it, or
  /// stays what it was: a copy that fails or is cancelled leaves nothing behind, and a file has its name only
  /// when it is whole. Refused: a read-only target, and one that is hidden or
  /// system when the source is not (AccessDenied); source and target the same file, and either held
  /// exclusively elsewhere (SharingViolation).
  virtual SysResult Copy(std::string_view source, std::string_view target, const CopyOptions& options) = 0;

  /// Moves a file, a link itself, or a folder. A target that exists is AlreadyExists without
  /// ReplaceExisting, and AccessDenied with it when it is read-only or a folder. A file that is moved or
  /// replaced while it is held exclusively elsewhere is a SharingViolation. The old target makes way in one
  /// step, for a file that is whole. To another volume it is NotSameDevice without CopyAllowed, and never
  /// for a folder (AccessDenied); a source that changes meanwhile is a SharingViolation and stays.
  virtual SysResult Move(std::string_view source, std::string_view target, uint32_t flags,
                         const CopyProgress& progress = {}) = 0;
};
