#include "host/log/ProgressLine.h"

#include <algorithm>
#include <utility>

#include "host/log/DisplayText.h"

namespace {

constexpr size_t kPercentColumns = 4, kBarCells = 20, kBarColumns = kBarCells + 4;  // brackets, two blanks
constexpr size_t kLeastTextColumns = 12;
constexpr int kMostColumns = 100;  // the eye loses the line between a text and a bar far off

std::string Bar(size_t percent) {
  const size_t filled = percent * kBarCells / 100;
  return "  [" + std::string(filled, '#') + std::string(kBarCells - filled, '-') + ']';
}

}  // namespace

ProgressLine::ProgressLine(int width)
    : columns_(static_cast<size_t>(std::clamp(width - 1, 0, kMostColumns))) {}

std::string ProgressLine::Compose(std::string_view text, size_t percent) const {
  std::string number = std::to_string(percent) + '%';
  number.insert(0, kPercentColumns - number.size(), ' ');
  size_t textColumns = columns_ - kPercentColumns - 1;
  std::string bar;
  if (textColumns >= kLeastTextColumns + kBarColumns) {
    textColumns -= kBarColumns;
    bar = Bar(percent);
  }
  return FitColumns(DisplayLine(text), textColumns) + bar + ' ' + number;
}

std::string ProgressLine::Draw(std::string_view text, int32_t percent) {
  if (columns_ <= kPercentColumns) return {};
  std::string line = Compose(text, static_cast<size_t>(std::clamp(percent, 0, 100)));
  if (line == shown_) return {};
  shown_ = std::move(line);
  return '\r' + shown_;
}

std::string ProgressLine::Erase() {
  if (shown_.empty()) return {};
  shown_.clear();
  return '\r' + std::string(columns_, ' ') + '\r';
}
