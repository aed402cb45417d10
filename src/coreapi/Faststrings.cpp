#include "coreapi/Faststrings.h"

#include "base/Text.h"

namespace {

struct Occurrence {
  size_t start = std::string_view::npos, end = std::string_view::npos;
};

/// Where a match of `wanted` that starts at `start` ends, letter case aside; npos when none starts there.
size_t MatchEnd(std::string_view text, size_t start, std::string_view wanted) {
  for (size_t i = 0; i < wanted.size();) {
    if (start == text.size()) return std::string_view::npos;
    if (UpCase(NextCodePoint(text, start)) != UpCase(NextCodePoint(wanted, i))) return std::string_view::npos;
  }
  return start;
}

Occurrence FindExact(std::string_view text, size_t from, std::string_view wanted) {
  const size_t start = text.find(wanted, from);
  if (start == std::string_view::npos) return {};
  return {start, start + wanted.size()};
}

Occurrence FindIgnoringCase(std::string_view text, size_t from, std::string_view wanted) {
  for (size_t start = from; start < text.size(); NextCodePoint(text, start)) {
    const size_t end = MatchEnd(text, start, wanted);
    if (end != std::string_view::npos) return {start, end};
  }
  return {};
}

}  // namespace

std::string FastAnsiReplace(std::string_view text, std::string_view oldText, std::string_view newText,
                            TReplaceFlags flags) {
  std::string result;
  if (oldText.empty()) return result.append(text);
  const auto find = flags.Has(TReplaceFlag::rfIgnoreCase) ? FindIgnoringCase : FindExact;
  size_t position = 0;
  for (Occurrence hit; (hit = find(text, position, oldText)).start != std::string_view::npos;) {
    result.append(text.substr(position, hit.start - position)).append(newText);
    position = hit.end;
    if (!flags.Has(TReplaceFlag::rfReplaceAll)) break;
  }
  return result.append(text.substr(position));
}
