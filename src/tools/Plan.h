#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"
#include "tools/Selection.h"

/// A file of the source, and what is to be done with it.
struct FileStep {
  FoundEntry file;
  FileClass fileClass;
  std::string target;  // the destination's own spelling of the name
  bool exists;         // at the destination
  bool stays = false;  // in the source, also when it is moved
};

/// A sub-folder of the source that is gone into, or is a file at the destination.
struct FolderStep {
  std::string name, target;
  bool isLink;  // in the source
  bool exists;
  bool isMismatch;
  bool meetsLink;  // at the destination
};

/// What only the destination has.
struct ExtraStep {
  FoundEntry entry;
  bool isSelected;  // by its name; what is not stays in any case
  bool IsFolder() const;
};

/// All that is to be done in one folder, in the order of names.
struct FolderPlan {
  std::vector<ExtraStep> extras;
  std::vector<FileStep> files;
  std::vector<FolderStep> folders;

  /// Why a side could not be listed. A source that was not listed whole makes nothing extra.
  SysResult sourceListed, targetListed;
};

/// What the planner looks at in a folder; paths are full and end in a delimiter.
struct FolderPair {
  std::string_view source, target;
  bool targetExists;
};

/// Finds out what is to be done, a folder at a time; changes nothing.
class Planner {
 public:
  /// Without a look at the attributes that are stored on their own it is quicker, and takes tweaked files for
  /// same ones.
  Planner(const Platform& platform, const Selection& selection, bool entersFolders, bool looksAtAttributes)
      : platform_(platform),
        selection_(selection),
        entersFolders_(entersFolders),
        detail_(looksAtAttributes ? FindDetail::All : FindDetail::Status) {}

  FolderPlan Plan(const FolderPair& folders, bool goesDeeper) const;

  /// All entries of a folder but "." and "..".
  SysResult List(std::string_view folder, std::vector<FoundEntry>& entries) const;

 private:
  const Platform& platform_;
  const Selection& selection_;
  bool entersFolders_;
  FindDetail detail_;
};
