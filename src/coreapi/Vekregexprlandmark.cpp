#include "coreapi/Vekregexprlandmark.h"

#include <algorithm>
#include <vector>

#include "coreapi/Vekregexpritems.h"

namespace {

constexpr size_t kLeastText = 2;
constexpr size_t kMostBefore = 63;

/// Items that are texts and stand one behind another.
struct Run {
  size_t first = 0, last = 0, text = 0;
};

Run LongestText(const std::vector<TRegExprItem>& items) {
  Run longest, run;
  for (size_t i = 0; i < items.size(); ++i) {
    const bool goesOn = run.text > 0 && items[i].leastText > 0 && items[i - 1].end == items[i].begin;
    if (!goesOn) run = {.first = i, .last = i, .text = 0};
    run.last = i;
    run.text += items[i].leastText;
    if (run.text > longest.text) longest = run;
  }
  return longest;
}

}  // namespace

std::optional<TRegExprLandmarks> TRegExprLandmarks::Of(std::string_view expression,
                                                       bool dotMatchesLineBreaks) {
  const auto items = RegExprItems(expression, dotMatchesLineBreaks);
  if (!items) return {};
  const Run run = LongestText(*items);
  // The engine itself is quick to find a text that matches begin with.
  if (run.text < kLeastText || run.first == 0 || run.first > kMostBefore) return {};
  TRegExprLandmarks landmarks;
  for (size_t i = 0; i < run.first; ++i) landmarks.RunBackwards((*items)[i], i);
  const size_t begin = (*items)[run.first].begin, end = (*items)[run.last].end;
  int error = 0;
  size_t offset = 0;
  landmarks.part_ = Compile(expression.substr(begin, end - begin), 0, error, offset);
  if (!landmarks.part_) return {};
  landmarks.data_.reset(Allocated(pcre2_match_data_create(1, nullptr)));
  return landmarks;
}

void TRegExprLandmarks::RunBackwards(const TRegExprItem& item, size_t index) {
  const uint64_t bit = uint64_t{2} << index;
  all_ |= bit;
  if (item.isRepeatable) repeatable_ |= bit;
  if (item.isOptional) optional_ |= bit;
  for (size_t byte = 0; byte < matching_.size(); ++byte) {
    if (item.bytes.test(byte)) matching_[byte] |= bit;
  }
}

void TRegExprLandmarks::Begin(std::string_view text, size_t from) {
  constexpr size_t kLeast = 4096;
  text_ = text;
  begun_ = from;
  cost_ = 0;
  isKnown_ = false;
  pays_ = text.size() > kLeast;
}

std::optional<TRegExprLandmarks::Landmark> TRegExprLandmarks::Next(size_t from) {
  begun_ = std::min(begun_, from);
  if (!isKnown_ || from < soughtFrom_ || from > next_) {
    next_ = Find(from);
    soughtFrom_ = from;
    isKnown_ = true;
  }
  if (next_ == text_.size()) return {};
  const size_t start = EarliestStart(from, next_);
  constexpr size_t kOfALook = 64, kTrial = size_t{64} << 10;
  cost_ += next_ - start + kOfALook;
  pays_ = cost_ <= next_ - begun_ + kTrial;
  return Landmark{next_, start};
}

/// The end of the text where there is none.
size_t TRegExprLandmarks::Find(size_t from) {
  const int result = pcre2_match(part_.get(), Units(text_), text_.size(), from, 0, data_.get(), nullptr);
  if (result == PCRE2_ERROR_NOMATCH) return text_.size();
  // What else goes wrong would go wrong for the search as well: it looks at each place.
  return result < 0 ? from : pcre2_get_ovector_pointer(data_.get())[0];
}

size_t TRegExprLandmarks::EarliestStart(size_t from, size_t position) const {
  size_t earliest = position;
  // A match may have the part at a later place as well, so that any item may stand before this one.
  uint64_t next = all_;
  while (position > from && next != 0) {
    const uint64_t matched = next & matching_[static_cast<unsigned char>(text_[--position])];
    next = (matched & repeatable_) | (matched >> 1);
    for (uint64_t more = next; (more = (more & optional_) >> 1) != 0;) next |= more;
    if ((next & 1) != 0) earliest = position;
    next &= all_;
  }
  return earliest;
}
