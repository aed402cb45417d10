#pragma once

#include <cstdint>
#include <string_view>

#include "base/Win32Error.h"
#include "tools/Plan.h"

/// How many of one kind were met, and what became of them.
struct Tally {
  uint64_t total = 0, copied = 0, skipped = 0, mismatched = 0, failed = 0, extra = 0;
};

struct Totals {
  Tally folders, files, bytes;
  bool isFatal = false;  // it could not begin, or had to end early
  double copySeconds = 0;
};

/// Told of what a run does, in the order of the tree and on one thread. Folders are full paths that end in a
/// delimiter.
class Report {
 public:
  virtual ~Report() = default;

  virtual void OnFolder(std::string_view folder, bool isNew, size_t files) = 0;
  virtual void OnFile(std::string_view folder, std::string_view targetFolder, const FileStep& step,
                      bool isCopied) = 0;
  virtual void OnExtra(std::string_view folder, const ExtraStep& extra) = 0;
  virtual void OnFolderMismatch(std::string_view folder) = 0;

  /// What failed: "Copying File" and its like, and where.
  virtual void OnError(Win32Error code, std::string_view what, std::string_view path) = 0;
  virtual void OnRetry(double seconds) = 0;
  virtual void OnGivenUp() = 0;
  virtual void OnRefused(std::string_view line) = 0;
};
