#include "host/filesets/PathPattern.h"

#include <algorithm>
#include <string>

#include "base/WindowsPath.h"

PathPattern::PathPattern(std::string_view text) {
  const bool allBelow = !text.empty() && IsPathDelimiter(text.back());
  while (!text.empty()) {
    const auto end = std::find_if(text.begin(), text.end(), IsPathDelimiter);
    const std::string_view part(text.data(), static_cast<size_t>(end - text.begin()));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    if (!part.empty() && part != ".") parts_.push_back({part == "**", DosMask(part)});
  }
  if (allBelow) parts_.push_back({true, DosMask("**")});
  // Any number of folders at the end means the files in them.
  if (!parts_.empty() && parts_.back().anyFolders) parts_.push_back({false, DosMask("*")});
}

PathPattern::State PathPattern::Start() const {
  State state(parts_.size() + 1);
  state[0] = true;
  Close(state);
  return state;
}

/// "**" may stand for no folder at all.
void PathPattern::Close(State& state) const {
  for (size_t i = 0; i < parts_.size(); ++i) {
    if (state[i] && parts_[i].anyFolders) state[i + 1] = true;
  }
}

PathPattern::State PathPattern::Enter(const State& state, std::string_view folderName) const {
  State below(state.size());
  for (size_t i = 0; i < parts_.size(); ++i) {
    if (!state[i]) continue;
    if (parts_[i].anyFolders) {
      below[i] = true;
    } else if (parts_[i].mask.Matches(folderName)) {
      below[i + 1] = true;
    }
  }
  Close(below);
  return below;
}

bool PathPattern::MatchesFile(const State& state, std::string_view fileName) const {
  return !parts_.empty() && state[parts_.size() - 1] && parts_.back().mask.Matches(fileName);
}

bool PathPattern::CanMatchBelow(const State& state) const {
  return std::find(state.begin(), state.end() - 1, true) != state.end() - 1;
}

bool PathPattern::MatchesAllBelow(const State& state) const {
  const size_t count = parts_.size();
  return count >= 2 && state[count - 2] && parts_[count - 2].anyFolders && parts_.back().mask.MatchesAll();
}
