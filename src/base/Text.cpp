#include "base/Text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace {

struct UpCaseRun {
  uint32_t first, last;
  int32_t stride, distance;
};

constexpr UpCaseRun kUpCaseRuns[] = {
#include "base/UpCaseTable.inc"
};

constexpr char UpCaseAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

// Looked at in one go: the compiler makes a few wide operations of it.
constexpr size_t kBlock = 64;
bool IsAsciiBlock(std::string_view block) {
  unsigned char bits = 0;
  if (block.size() == kBlock) {
    for (size_t i = 0; i < kBlock; ++i) bits |= static_cast<unsigned char>(block[i]);
  } else {
    for (const char c : block) bits |= static_cast<unsigned char>(c);
  }
  return bits < 0x80;
}

/// Length of the UTF-8 sequence that `lead` starts, 0 when it starts none.
constexpr size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC2) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF5 ? 4 : 0;
}

constexpr bool IsScalar(char32_t c, size_t length) {
  constexpr char32_t kLowest[] = {0, 0, 0x80, 0x800, 0x10000};
  return c >= kLowest[length] && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

/// Compares upper-cased text; stops at the first difference.
int CompareNoCase(std::string_view a, std::string_view b) {
  size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    char32_t x, y;
    if (IsAscii(a[i]) && IsAscii(b[j])) {
      x = static_cast<unsigned char>(UpCaseAscii(a[i++]));
      y = static_cast<unsigned char>(UpCaseAscii(b[j++]));
    } else {
      x = UpCase(NextCodePoint(a, i));
      y = UpCase(NextCodePoint(b, j));
    }
    if (x != y) return x < y ? -1 : 1;
  }
  return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= 0x20; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

char32_t UpCase(char32_t codePoint) {
  if (codePoint < 0x80) return static_cast<unsigned char>(UpCaseAscii(static_cast<char>(codePoint)));
  const auto* run = std::lower_bound(std::begin(kUpCaseRuns), std::end(kUpCaseRuns), codePoint,
                                     [](const UpCaseRun& r, char32_t c) { return r.last < c; });
  if (run == std::end(kUpCaseRuns) || codePoint < run->first) return codePoint;
  if ((codePoint - run->first) % static_cast<uint32_t>(run->stride) != 0) return codePoint;
  return static_cast<char32_t>(static_cast<int64_t>(codePoint) + run->distance);
}

std::string UpCase(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    if (IsAscii(text[i])) {
      result += UpCaseAscii(text[i++]);
    } else {
      const char32_t c = NextCodePoint(text, i);
      c >= kInvalidByte ? result.push_back(static_cast<char>(c - kInvalidByte))
                        : AppendUtf8(result, UpCase(c));
    }
  }
  return result;
}

bool SameText(std::string_view a, std::string_view b) { return a == b || CompareNoCase(a, b) == 0; }

bool LessNoCase::operator()(std::string_view a, std::string_view b) const { return CompareNoCase(a, b) < 0; }

char32_t NextCodePoint(std::string_view text, size_t& position) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(position);
  const size_t length = SequenceLength(lead);
  char32_t c = length == 1 ? lead : lead & (0x7Fu >> length);
  bool valid = length != 0 && position + length <= text.size();
  for (size_t i = 1; valid && i < length; ++i) {
    valid = (byte(position + i) & 0xC0u) == 0x80;
    c = c << 6 | (byte(position + i) & 0x3Fu);
  }
  if (!valid || !IsScalar(c, length)) {
    ++position;
    return kInvalidByte + lead;
  }
  position += length;
  return c;
}

void AppendUtf8(std::string& text, char32_t c) {
  const auto add = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    add(c);
  } else if (c < 0x800) {
    add(0xC0 | c >> 6), add(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    add(0xE0 | c >> 12), add(0x80 | (c >> 6 & 0x3F)), add(0x80 | (c & 0x3F));
  } else {
    add(0xF0 | c >> 18), add(0x80 | (c >> 12 & 0x3F)), add(0x80 | (c >> 6 & 0x3F)), add(0x80 | (c & 0x3F));
  }
}

bool IsUtf8(std::string_view text) {
  for (size_t i = 0; i < text.size();) {
    if (NextCodePoint(text, i) >= kInvalidByte) return false;
  }
  return true;
}

size_t CharacterCount(std::string_view text) {
  size_t count = 0;
  for (size_t i = 0; i < text.size();) {
    const std::string_view block = text.substr(i, kBlock);
    if (IsAsciiBlock(block)) {
      count += block.size();
      i += block.size();
    } else {
      for (const size_t end = i + block.size(); i < end; ++count) NextCodePoint(text, i);
    }
  }
  return count;
}

bool IsAscii(std::string_view text) {
  for (size_t i = 0; i < text.size(); i += kBlock) {
    if (!IsAsciiBlock(text.substr(i, kBlock))) return false;
  }
  return true;
}

bool TakeLine(std::string_view& rest, std::string_view& line) {
  if (rest.empty()) return false;
  size_t end = 0;
  while (end < rest.size() && rest[end] != '\r' && rest[end] != '\n') ++end;
  line = rest.substr(0, end);
  const size_t lineBreak = rest.substr(end, 2) == "\r\n" ? 2 : 1;
  rest.remove_prefix(std::min(end + lineBreak, rest.size()));
  return true;
}

StringList SplitLines(std::string_view text) {
  StringList lines;
  for (std::string_view line; TakeLine(text, line);) lines.emplace_back(line);
  return lines;
}

std::string JoinLines(const StringList& lines, std::string_view separator) {
  size_t length = 0;
  for (const std::string& line : lines) length += line.size() + separator.size();
  std::string text;
  text.reserve(length);
  for (const std::string& line : lines) {
    if (&line != &lines.front()) text += separator;
    text += line;
  }
  return text;
}

StringList SplitAt(std::string_view text, std::string_view separator) {
  StringList lines;
  while (!text.empty()) {
    const size_t end = text.find(separator);
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + separator.size());
  }
  return lines;
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  size_t position = 0;
  for (size_t hit; (hit = text.find(from, position)) != std::string_view::npos;
       position = hit + from.size()) {
    result.append(text, position, hit - position).append(to);
  }
  return result.append(text, position);
}
