#include "base/Wildcard.h"

#include <algorithm>
#include <vector>

#include "base/Text.h"

namespace {

// Wildcards, as code points that no name holds.
constexpr char32_t kAny = 0x200000;           // '*'
constexpr char32_t kAnyToLastDot = 0x200001;  // '*' before a dot: may not take the name's last dot
constexpr char32_t kOneOrEnd = 0x200002;      // '?': one character, or nothing before a dot and at the end
constexpr char32_t kDotOrEnd = 0x200003;      // '.' before a wildcard: a dot, or nothing at the end

std::u32string ElementsOf(std::string_view mask) {
  const bool finalDot = mask.ends_with('.');
  while (mask.ends_with('.')) mask.remove_suffix(1);
  std::u32string elements;
  for (size_t i = 0; i < mask.size();) {
    const char next = i + 1 < mask.size() ? mask[i + 1] : '\0';
    const char c = mask[i];
    const bool atEnd = i + 1 == mask.size();
    if (c == '*') {
      elements += next == '.' || (atEnd && finalDot) ? kAnyToLastDot : kAny;
    } else if (c == '?') {
      elements += kOneOrEnd;
    } else if (c == '.' && (next == '*' || next == '?')) {
      elements += kDotOrEnd;
    } else {
      elements += UpCase(NextCodePoint(mask, i));
      continue;
    }
    ++i;
  }
  return elements;
}

/// The elements that may come next, one flag each and one for the end of the mask; all are followed at once.
class Positions {
 public:
  explicit Positions(std::u32string_view mask) : mask_(mask), now_(mask.size() + 1), then_(mask.size() + 1) {
    now_[0] = true;
  }

  /// Takes one character of the name.
  void Take(char32_t c, bool isLastDot) {
    std::fill(then_.begin(), then_.end(), false);
    for (size_t i = 0; i < mask_.size(); ++i) {
      if (!now_[i]) continue;
      if (mask_[i] == kAny || mask_[i] == kAnyToLastDot) {
        then_[i] = then_[i] || mask_[i] == kAny || !isLastDot;
        now_[i + 1] = true;
      } else if (mask_[i] == kOneOrEnd) {
        (c == '.' ? now_ : then_)[i + 1] = true;
      } else if (mask_[i] == c || (mask_[i] == kDotOrEnd && c == '.')) {
        then_[i + 1] = true;
      }
    }
    now_.swap(then_);
  }

  /// Whether the mask may end where the name does.
  bool MayEnd() const {
    for (size_t i = mask_.size() + 1; i-- > 0;) {
      if (now_[i]) return true;
      if (i > 0 && mask_[i - 1] < kAny) return false;
    }
    return false;
  }

 private:
  std::u32string_view mask_;
  std::vector<char> now_, then_;
};

}  // namespace

DosMask::DosMask(std::string_view mask) : elements_(ElementsOf(mask)) {
  matchesAll_ = mask == "*" || mask == "*.*";
  const std::string_view rest = mask.substr(mask.empty() ? 0 : 1);
  const bool isSuffix = mask.starts_with('*') && rest.find_first_of("*?") == std::string_view::npos &&
                        !rest.empty() && !rest.ends_with('.') && IsAscii(rest);
  if (isSuffix) suffix_ = UpCase(rest);
}

bool DosMask::Matches(std::string_view name) const {
  if (matchesAll_) return true;
  if (suffix_.empty()) return MatchesSlowly(name);
  if (name.size() < suffix_.size()) return false;
  const std::string_view end = name.substr(name.size() - suffix_.size());
  // Some letters beyond ASCII have their upper case in it.
  return IsAscii(end) ? SameText(end, suffix_) : MatchesSlowly(name);
}

bool DosMask::MatchesSlowly(std::string_view name) const {
  Positions positions(elements_);
  const size_t lastDot = name.rfind('.');
  for (size_t i = 0; i < name.size();) {
    const bool isLastDot = i == lastDot;
    positions.Take(UpCase(NextCodePoint(name, i)), isLastDot);
  }
  return positions.MayEnd();
}

bool MatchesDosMask(std::string_view name, std::string_view mask) { return DosMask(mask).Matches(name); }
