#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "base/Wildcard.h"
#include "platform/Finder.h"

/// What a file of the source is, beside what the destination has under its name, or why it is left out.
enum class FileClass : uint8_t {
  New,       // the destination has none
  Newer,     // written later than the destination's
  Older,     // written earlier
  Changed,   // written at the same time, of another size
  Tweaked,   // differs in attributes only
  Same,      // differs in nothing
  Mismatch,  // a file here is a folder there
  Extra,     // the destination's alone
  Named,     // left out by its name, and so on
  Attributes,
  Large,
  Small,
  TooOld,
  TooNew,
  Link,
};
inline constexpr size_t kFileClasses = static_cast<size_t>(FileClass::Link) + 1;

class FileClassSet {
 public:
  constexpr FileClassSet(std::initializer_list<FileClass> classes) {
    for (const FileClass c : classes) bits_ |= Bit(c);
  }
  constexpr bool Has(FileClass c) const { return (bits_ & Bit(c)) != 0; }
  constexpr void Set(FileClass c, bool on) { bits_ = on ? bits_ | Bit(c) : bits_ & ~Bit(c); }

 private:
  static constexpr uint32_t Bit(FileClass c) { return 1U << static_cast<unsigned>(c); }
  uint32_t bits_ = 0;
};

/// Which files are meant. Times are Unix times in seconds.
struct SelectionRules {
  StringList names;                           // masks; none stands for every name
  StringList excludedFiles, excludedFolders;  // masks; one with a path is compared with full paths
  StringList keptFiles;                       // full paths at the destination; no purge takes them away
  StringList excludedTexts;                   // whoever has one of them in its full path is left out
  std::optional<uint32_t> withAttributes;     // one of these at least
  uint32_t requiredAttributes = 0;            // all of these
  uint32_t withoutAttributes = 0;             // none of these
  uint32_t foldersWithoutAttributes = 0;      // likewise of folders
  std::optional<uint64_t> largest, smallest;
  std::optional<double> oldest, newest;              // last written
  std::optional<double> oldestAccess, newestAccess;  // last read
  bool leavesFileLinks = false, leavesFolderLinks = false;
  double timeStep = 0;           // times that differ by no more are the same
  bool ignoresDaylight = false;  // nor do times that differ by one hour
  uint32_t comparedAttributes;   // those that make a file a tweaked one
  FileClassSet copied = {FileClass::New, FileClass::Newer, FileClass::Older, FileClass::Changed,
                         FileClass::Extra};  // an extra one is at least told of

  SelectionRules();
};

/// Says of each file of a source what it is, and whether it is copied. Knows nothing of the disk.
class Selection {
 public:
  explicit Selection(SelectionRules rules);

  /// Whether a file of that name is meant at all, on either side.
  bool IsNamed(std::string_view name) const;

  /// Whether it is of any consequence to it which attributes files have.
  bool AsksForAttributes() const;

  /// Whether no name is left out.
  bool MeansEveryName() const;

  /// Whether it is left out by name; folders are full paths with a trailing delimiter.
  bool IsExcludedFile(std::string_view folder, std::string_view name) const;
  bool IsExcludedFolder(std::string_view folder, std::string_view name) const;

  /// Whether a purge leaves a file alone.
  bool IsKept(std::string_view folder, std::string_view name) const;

  /// Whether a sub-folder of the source is left alone for what it is.
  bool LeavesFolder(const FoundEntry& folder) const;

  /// `counterpart` is what the destination has under that name, or null.
  FileClass Classify(std::string_view folder, const FoundEntry& file, const FoundEntry* counterpart) const;

  bool Copies(FileClass fileClass) const { return rules_.copied.Has(fileClass); }

 private:
  struct Mask {
    DosMask mask;
    std::string folder;  // of a mask with a path; empty for any folder
  };

  static std::vector<Mask> MasksOf(const StringList& texts);
  static bool Matches(const std::vector<Mask>& masks, std::string_view folder, std::string_view name);
  bool HasExcludedText(std::string_view folder, std::string_view name) const;
  std::optional<FileClass> LeftOut(std::string_view folder, const FoundEntry& file) const;
  FileClass Compared(const FoundEntry& file, const FoundEntry& counterpart) const;
  bool SameTime(double a, double b) const;

  SelectionRules rules_;
  std::vector<DosMask> names_;
  std::vector<Mask> files_, folders_;
};
