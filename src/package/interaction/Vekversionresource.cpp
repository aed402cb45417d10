#include "interaction/Vekversionresource.h"

#include <algorithm>
#include <cstdio>

#include "base/Text.h"
#include "interaction/Vekportableexecutable.h"

namespace {

constexpr uint32_t kVersionType = 16, kFixedSignature = 0xFEEF04BD;
constexpr size_t kMostBytes = 0x10000;  // lengths in it have 16 bits

constexpr size_t Aligned(size_t at) { return (at + 3) & ~size_t{3}; }

/// What everything in the resource is made of: a key, a value, and blocks below it.
struct Block {
  size_t start, end;
  std::string key;
  size_t value, valueEnd;
  size_t Children() const { return Aligned(valueEnd); }
};

class VersionData {
 public:
  explicit VersionData(std::string bytes) : bytes_(std::move(bytes)) {}

  VersionResource Take() const {
    const Block root = BlockAt(0, bytes_.Size());
    VersionResource resource;
    TakeNumbers(root, resource);
    const auto strings = Child(root, "StringFileInfo");
    if (!strings) return resource;
    auto table = Child(*strings, FirstTranslation(root));
    if (!table) table = Child(*strings, "");
    if (!table) return resource;
    ForEachChild(*table, [&](const Block& entry) {
      resource.strings.emplace_back(entry.key, Text(entry.value, entry.valueEnd));
      return true;
    });
    return resource;
  }

 private:
  Block BlockAt(size_t at, size_t limit) const {
    constexpr size_t kHeader = 6, kText = 1;
    const size_t end = at + bytes_.U16(at);
    if (end > limit || end < at + kHeader) throw EDamagedFile();
    Block block{.start = at, .end = end, .key = Text(at + kHeader, end), .value = 0, .valueEnd = 0};
    block.value = std::min(Aligned(TextEnd(at + kHeader, end) + 2), end);
    // The length of a text counts characters, though some tools count bytes.
    const size_t length = size_t{bytes_.U16(at + 2)} * (bytes_.U16(at + 4) == kText ? 2 : 1);
    block.valueEnd = std::min(block.value + length, end);
    return block;
  }

  /// Calls `use` for each block below until it answers false.
  template <class Use>
  void ForEachChild(const Block& parent, const Use& use) const {
    constexpr size_t kLeast = 8;
    for (size_t at = parent.Children(); at + kLeast <= parent.end && bytes_.U16(at) != 0;) {
      const Block child = BlockAt(at, parent.end);
      if (!use(child)) return;
      at = Aligned(child.end);
    }
  }

  /// The block of that key, in any case; the first one for an empty key.
  std::optional<Block> Child(const Block& parent, std::string_view key) const {
    std::optional<Block> found;
    ForEachChild(parent, [&](const Block& child) {
      if (key.empty() || SameText(child.key, key)) found = child;
      return !found;
    });
    return found;
  }

  void TakeNumbers(const Block& root, VersionResource& resource) const {
    constexpr size_t kFile = 8, kProduct = 16;
    if (bytes_.U32(root.value) != kFixedSignature) throw EDamagedFile();
    const auto number = [&](size_t at) {
      return VersionNumber{bytes_.U16(at + 2), bytes_.U16(at), bytes_.U16(at + 6), bytes_.U16(at + 4)};
    };
    resource.fileVersion = number(root.value + kFile);
    resource.productVersion = number(root.value + kProduct);
  }

  /// The key of its strings: language and code page in hexadecimal; empty when none is listed.
  std::string FirstTranslation(const Block& root) const {
    const auto info = Child(root, "VarFileInfo");
    const auto list = info ? Child(*info, "Translation") : std::nullopt;
    if (!list || list->valueEnd - list->value < 4) return {};
    char key[9];
    std::snprintf(key, sizeof key, "%04x%04x", unsigned{bytes_.U16(list->value)},
                  unsigned{bytes_.U16(list->value + 2)});
    return key;
  }

  size_t TextEnd(size_t at, size_t limit) const {
    while (at + 2 <= limit && bytes_.U16(at) != 0) at += 2;
    return at;
  }

  /// UTF-16 up to a zero or the limit.
  std::string Text(size_t at, size_t limit) const {
    std::string text;
    for (const size_t end = TextEnd(at, limit); at + 2 <= end; at += 2) {
      char32_t c = bytes_.U16(at);
      const char32_t next = at + 4 <= end ? bytes_.U16(at + 2) : 0;
      if (c >= 0xD800 && c < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
        c = 0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00);
        at += 2;
      }
      AppendUtf8(text, c >= 0xD800 && c < 0xE000 ? U'\uFFFD' : c);
    }
    return text;
  }

  const FileBytes bytes_;
};

}  // namespace

std::string VersionText(const VersionNumber& version) {
  std::string text;
  for (const uint16_t part : version) text.append(text.empty() ? "" : ".").append(std::to_string(part));
  return text;
}

const std::string* VersionResource::Find(std::string_view name) const {
  const auto found =
      std::ranges::find_if(strings, [name](const auto& entry) { return SameText(entry.first, name); });
  return found == strings.end() ? nullptr : &found->second;
}

std::optional<VersionResource> ReadVersionResource(const FileReader& file) {
  try {
    std::string bytes = PortableExecutable(file).FirstResource(kVersionType, kMostBytes);
    if (bytes.empty()) return {};
    return VersionData(std::move(bytes)).Take();
  } catch (const EDamagedFile&) {
    return {};
  }
}
