#pragma once

#include <string_view>
#include <vector>

#include "base/Wildcard.h"

/// A pattern of paths relative to a base folder: names with '*' and '?', which stay within a name and follow
/// the DOS rules, and "**" for any number of folders, none included. A pattern that ends in a delimiter means
/// all that is below that folder.
///
/// Matching walks down with the folders: a state says how much of the pattern a folder's path has used up.
class PathPattern {
 public:
  /// The parts of the pattern that may come next, one flag each and one for its end.
  using State = std::vector<bool>;

  explicit PathPattern(std::string_view text);

  State Start() const;

  /// The state below a folder of that name.
  State Enter(const State& state, std::string_view folderName) const;

  bool MatchesFile(const State& state, std::string_view fileName) const;

  bool CanMatchBelow(const State& state) const;    // some file in the folder or below it
  bool MatchesAllBelow(const State& state) const;  // every one

 private:
  struct Part {
    bool anyFolders;
    DosMask mask;
  };

  void Close(State& state) const;

  std::vector<Part> parts_;
};
