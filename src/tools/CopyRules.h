#pragma once

#include <cstdint>

#include "base/Text.h"

/// How a tree is copied.
struct CopyRules {
  bool entersFolders = false;
  bool makesEmptyFolders = false;
  uint64_t levels = 0;  // from the top; 0: all
  bool copiesFiles = true;

  bool purges = false;        // removes what only the destination has
  bool movesFiles = false;    // removes from the source what was copied
  bool movesFolders = false;  // likewise
  bool listsOnly = false;     // changes nothing

  bool copiesData = true;
  bool copiesAttributes = true;
  uint32_t addedAttributes = 0, removedAttributes = 0;

  /// Whether anything is done to a file that is meant; `exists` at the destination.
  bool ChangesFile(bool exists) const {
    const bool setsAttributes = copiesAttributes || (addedAttributes | removedAttributes) != 0;
    return copiesData || (exists && setsAttributes);
  }
  bool clearsArchive = false;  // at the source, of what was copied
  bool overwritesReadOnly = true;
  bool verifiesSize = false;

  bool looksAtAttributes = true;  // at those of every file, not only of those that are copied

  uint64_t retries = 0;
  double waitSeconds = 0;  // before each of them
  bool stopsAtError = false;
  double gapSeconds = 0;  // after each 64 KiB
  unsigned threads = 0;
  bool allowsProtected = false;
  StringList protectedFiles;  // the folders that hold them are protected, too
};
