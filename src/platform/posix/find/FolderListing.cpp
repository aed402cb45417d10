#include "platform/posix/find/FolderListing.h"

#include <algorithm>

#include "base/Text.h"

namespace {

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// Eight characters in one number that orders as they do. From the first one beyond ASCII on it says only
/// that such a one comes, which is after all of ASCII.
uint64_t KeyOf(std::string_view text) {
  uint64_t key = 0;
  bool beyond = false;
  for (size_t i = 0; i < 8; ++i) {
    beyond = beyond || (i < text.size() && !IsAscii(text[i]));
    uint64_t byte = 0;
    if (beyond) {
      byte = 0xFF;
    } else if (i < text.size()) {
      const auto c = static_cast<unsigned char>(text[i]);
      byte = c >= 'a' && c <= 'z' ? c - 0x20u : c;
    }
    key = key << 8 | byte;
  }
  return key;
}

}  // namespace

void FolderListing::Add(std::string_view name, std::string_view shown, unsigned char type) {
  const bool isApart = shown != name;
  entries_.push_back({0, names_.size(), static_cast<uint16_t>(shown.size()), isApart, type});
  names_.append(name).push_back('\0');
  if (isApart) names_.append(shown).push_back('\0');
}

void FolderListing::Sort() {
  const size_t prefix = CommonPrefix();
  for (Entry& entry : entries_) {
    const std::string_view name = Text(entry);
    // The folder itself and the one above come before names that begin with an earlier character.
    entry.key = name == "." || name == ".." ? 0 : KeyOf(name.substr(prefix));
  }
  std::sort(entries_.begin(), entries_.end(),
            [this](const Entry& a, const Entry& b) { return IsBefore(a, b); });
}

/// How many ASCII characters all names begin with.
size_t FolderListing::CommonPrefix() const {
  if (entries_.empty()) return 0;
  const std::string_view first = Text(entries_.front());
  size_t length = first.size();
  for (const Entry& entry : entries_) {
    const std::string_view name = Text(entry).substr(0, length);
    const auto differs = [](char a, char b) { return a == b && IsAscii(a); };
    length = static_cast<size_t>(std::mismatch(name.begin(), name.end(), first.begin(), differs).first -
                                 name.begin());
  }
  return length;
}

bool FolderListing::IsBefore(const Entry& a, const Entry& b) const {
  if (a.key != b.key) return a.key < b.key;
  const LessNoCase less;
  const std::string_view x = Text(a), y = Text(b);
  if (less(x, y)) return true;
  return !less(y, x) && x < y;
}
