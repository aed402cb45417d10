#include "base/Wildcard.h"

#include "base/Text.h"

namespace {

/// One mask against one name, with the position of the last '*' to fall back to.
class Matcher {
 public:
  Matcher(std::string_view name, std::string_view mask) : name_(name), mask_(mask) {}

  bool Matches() {
    while (namePosition_ < name_.size()) {
      if (!Step() && !Retry()) return false;
    }
    while (maskPosition_ < mask_.size() && (mask_[maskPosition_] == '*' || mask_[maskPosition_] == '?')) {
      ++maskPosition_;
    }
    return maskPosition_ == mask_.size();
  }

 private:
  bool Step() {
    if (maskPosition_ == mask_.size()) return false;
    const char wanted = mask_[maskPosition_];
    if (wanted == '*') {
      starMask_ = ++maskPosition_;
      starName_ = namePosition_;
      return true;
    }
    // A '?' before a dot may match nothing; it still takes the dot when nothing else can.
    if (wanted == '?' && name_[namePosition_] == '.') {
      ++maskPosition_;
      return true;
    }
    size_t nextName = namePosition_;
    const char32_t c = NextCodePoint(name_, nextName);
    size_t nextMask = maskPosition_ + 1;
    if (wanted != '?') {
      nextMask = maskPosition_;
      if (UpCase(NextCodePoint(mask_, nextMask)) != UpCase(c)) return false;
    }
    namePosition_ = nextName;
    maskPosition_ = nextMask;
    return true;
  }

  bool Retry() {
    if (starMask_ == std::string_view::npos) return false;
    NextCodePoint(name_, starName_);
    namePosition_ = starName_;
    maskPosition_ = starMask_;
    return true;
  }

  std::string_view name_, mask_;
  size_t namePosition_ = 0, maskPosition_ = 0;
  size_t starMask_ = std::string_view::npos, starName_ = 0;
};

}  // namespace

bool MatchesDosMask(std::string_view name, std::string_view mask) {
  if (mask == "*.*" || mask == "*") return true;
  if (mask.ends_with(".") && !mask.ends_with("..")) {
    // A mask that ends in a dot asks for no extension; the dot itself stands for nothing.
    if (name.find('.') != std::string_view::npos) return false;
    mask.remove_suffix(1);
  } else if (mask.ends_with(".*") && name.find('.') == std::string_view::npos) {
    mask.remove_suffix(2);
  }
  return Matcher(name, mask).Matches();
}
