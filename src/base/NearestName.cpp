#include "base/NearestName.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/Text.h"

namespace {

/// Optimal string alignment distance: insertions, deletions, substitutions and swaps of neighbours.
size_t Distance(std::string_view a, std::string_view b) {
  std::vector<size_t> beforeLast, last(b.size() + 1), current(b.size() + 1);
  for (size_t j = 0; j <= b.size(); ++j) last[j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    current[0] = i;
    for (size_t j = 1; j <= b.size(); ++j) {
      current[j] = std::min({last[j] + 1, current[j - 1] + 1, last[j - 1] + (a[i - 1] != b[j - 1])});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        current[j] = std::min(current[j], beforeLast[j - 2] + 1);
      }
    }
    beforeLast = std::exchange(last, current);
  }
  return last[b.size()];
}

}  // namespace

std::string_view NearestName(std::string_view name, std::span<const std::string_view> candidates) {
  // Further away than this is another word, not a slip of the finger.
  const size_t limit = std::min(1 + name.size() / 4, name.size() - (name.empty() ? 0 : 1));
  std::string_view nearest;
  size_t least = limit + 1;
  const std::string wanted = UpCase(name);
  for (std::string_view candidate : candidates) {
    const size_t distance = Distance(wanted, UpCase(candidate));
    if (distance < least) {
      least = distance;
      nearest = candidate;
    }
  }
  return nearest;
}

std::string DidYouMean(std::string_view name, std::span<const std::string_view> candidates) {
  const std::string_view nearest = NearestName(name, candidates);
  return nearest.empty() ? std::string() : "; did you mean \"" + std::string(nearest) + "\"?";
}
