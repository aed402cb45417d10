#include "base/Wildcard.h"
#include "fuzz/Fuzz.h"

namespace {

std::u32string Characters(std::string_view text) {
  std::u32string characters;
  for (size_t i = 0; i < text.size();) characters += UpCase(NextCodePoint(text, i));
  return characters;
}

/// The rules word for word, one question at a time.
class SlowMask {
 public:
  SlowMask(std::string_view mask, std::string_view name) : mask_(Characters(mask)), name_(Characters(name)) {
    while (mask_.ends_with(U'.')) mask_.pop_back(), finalDot_ = true;
    lastDot_ = name_.rfind(U'.');
    known_.assign((mask_.size() + 1) * (name_.size() + 1), -1);
  }

  bool Matches(size_t m = 0, size_t n = 0) {
    signed char& known = known_[m * (name_.size() + 1) + n];
    if (known < 0) known = Ask(m, n);
    return known > 0;
  }

 private:
  bool Ask(size_t m, size_t n) {
    const bool atEnd = n == name_.size();
    if (m == mask_.size()) return atEnd;
    const bool last = m + 1 == mask_.size();
    const char32_t next = last ? (finalDot_ ? U'.' : 0) : mask_[m + 1];
    switch (mask_[m]) {
      case U'*':
        if (Matches(m + 1, n)) return true;
        return !atEnd && !(next == U'.' && n == lastDot_) && Matches(m, n + 1);
      case U'?':
        if (atEnd || name_[n] == U'.') return Matches(m + 1, n);
        return Matches(m + 1, n + 1);
      case U'.':
        if (atEnd && !last && (next == U'*' || next == U'?')) return Matches(m + 1, n);
        break;
      default:
        break;
    }
    return !atEnd && mask_[m] == name_[n] && Matches(m + 1, n + 1);
  }

  std::u32string mask_, name_;
  bool finalDot_ = false;
  size_t lastDot_;
  std::vector<signed char> known_;
};

}  // namespace

FuzzFormat TargetFormat() {
  return {.seeds = {"*s.txt\x1F\xC5\xBF.txt", "*.*\x1Fname.txt", "*.txt\x1F.TXT", "?a*.\x1F\xC3\xA4.b",
                    "\xFF*.tar.gz\x1F\xFF.tar.gz"},
          .words = {"*", "?", ".", "*.", "*?", ".*", ".?", "a", "A", "ab", "txt", "\xC5\xBF", "s", "\xFF",
                    "\xC3\xA4", "\xC3\x84", "..", "**", std::string(kFieldEnd)},
          .runs = 40'000};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const StringList fields = Fields(InputText(data, size), 2);
  const std::string &mask = fields[0], &name = fields[1];
  if (mask.size() * name.size() > 10'000) return 0;
  const DosMask dosMask(mask);
  const bool matches = dosMask.Matches(name);
  Require(matches == SlowMask(mask, name).Matches(), "the slow mask sees it otherwise");
  Require(matches || !dosMask.MatchesAll(), "a mask that matches all misses a name");
  Require(matches == dosMask.Matches(UpCase(name)), "letter case counts");
  return 0;
}
