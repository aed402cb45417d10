#pragma once

#include <string_view>

#include "platform/posix/paths/PosixPaths.h"

/// What a change does to what is known of the disk.
///
/// Four things are remembered, because a build handles thousands of files in a row and each look at the disk
/// is a system call:
///
///   names          of the folders that were searched without regard to case. They are believed while the
///                  folder's own time of change stays, a second at most (NameIndex). For a target, whose
///                  change tells by itself what stands there, that time is not asked for again at once.
///   recent entry   the status and attributes of the entry that a search has just found (RecentEntry).
///   recent leaf    the folder that was just listed and has no sub-folders (RecentLeaf).
///   used folders   those that the last few paths led to, held open (PosixPaths).
///
/// The last three are believed for a tenth of a millisecond without a look, which is less than another
/// program takes to start: what others change is seen, since nobody can know that it came earlier. What this
/// process changes itself must be seen at once, and no clock tells of that. So whatever changes the disk
/// holds one of these objects while it does, or after that, and says which kind of change it is; there is no
/// other way to forget.
///
/// Files' contents are in none of the four: who writes into an open file changes nothing that is known.
class DiskChange {
 public:
  enum Kind {
    Attributes,  // an entry has another mode or other attributes: forgets the recent entry
    File,        // a file comes, goes or is exchanged: also names
    NewFolder,   // a folder comes: also the recent leaf
    Folder,      // a folder, or a link that may lead to one, goes or is another: also the used folders
    Anything,
  };

  /// A change in the folder of that place. What is known of its names, and told here, stays known, so that
  /// the folder need not be read anew after each of many changes.
  DiskChange(PosixPaths& paths, const Place& place, Kind kind);

  /// A change of anything anywhere: other programs have worked, or the current folder is another one.
  explicit DiskChange(PosixPaths& paths) : paths_(paths), folder_(nullptr), kind_(Anything) {}

  ~DiskChange();
  DiskChange(const DiskChange&) = delete;
  DiskChange& operator=(const DiskChange&) = delete;

  void Added(std::string_view name) { added_ = name; }
  void Removed(std::string_view name) { removed_ = name; }

 private:
  PosixPaths& paths_;
  const ::Folder* folder_;
  Kind kind_;
  bool namesKnown_ = false;
  std::string_view added_, removed_;
};
