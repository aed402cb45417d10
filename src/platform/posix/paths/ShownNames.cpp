#include "platform/posix/paths/ShownNames.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr struct {
  char onDisk;
  std::string_view shown;
} kCharacters[] = {{'\\', "\xEF\x81\x9C"}, {'*', "\xEF\x80\xAA"}, {'?', "\xEF\x80\xBF"}};

}  // namespace

std::string ShownName(std::string_view diskName) {
  std::string shown;
  for (const char c : diskName) {
    const auto* row = std::ranges::find(kCharacters, c, &std::remove_cvref_t<decltype(*kCharacters)>::onDisk);
    if (row == std::end(kCharacters)) {
      shown += c;
    } else {
      shown += row->shown;
    }
  }
  return shown;
}

std::string DiskName(std::string_view shownName) {
  std::string onDisk;
  while (!shownName.empty()) {
    const auto* row = std::ranges::find_if(
        kCharacters, [&](const auto& character) { return shownName.starts_with(character.shown); });
    const bool isOther = row == std::end(kCharacters);
    onDisk += isOther ? shownName.front() : row->onDisk;
    shownName.remove_prefix(isOther ? 1 : row->shown.size());
  }
  return onDisk;
}
