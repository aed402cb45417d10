#include "host/log/DisplayText.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "base/DisruptiveCharacters.h"
#include "base/Text.h"

namespace {

struct CodePointRange {
  char32_t first, last;
};

// What takes two columns, and what takes none, as terminals count.
constexpr CodePointRange kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0xA4CF},
                                    {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},
                                    {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},   {0x1F300, 0x1F64F},
                                    {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};
constexpr CodePointRange kZeroWidth[] = {{0x0300, 0x036F}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF},
                                         {0x200B, 0x200D}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F},
                                         {0xFE20, 0xFE2F}};

bool IsIn(std::span<const CodePointRange> ranges, char32_t c) {
  return std::ranges::any_of(ranges,
                             [c](CodePointRange range) { return c >= range.first && c <= range.last; });
}

size_t ColumnsOf(char32_t c) {
  if (c < 0x300) return 1;
  return IsIn(kZeroWidth, c) ? 0 : IsIn(kWide, c) ? 2 : 1;
}

size_t ColumnsOf(std::string_view line) {
  size_t columns = 0;
  for (size_t i = 0; i < line.size();) columns += ColumnsOf(NextCodePoint(line, i));
  return columns;
}

/// The longest beginning of at most so many columns.
std::string_view Head(std::string_view line, size_t columns) {
  for (size_t i = 0;;) {
    const size_t end = i;
    if (i == line.size()) return line;
    const size_t width = ColumnsOf(NextCodePoint(line, i));
    if (width > columns) return line.substr(0, end);
    columns -= width;
  }
}

/// The longest end of at most so many columns.
std::string_view Tail(std::string_view line, size_t columns) {
  size_t i = 0;
  for (size_t left = ColumnsOf(line); left > columns;) left -= ColumnsOf(NextCodePoint(line, i));
  return line.substr(i);
}

void AppendHex(std::string& out, char32_t c) {
  const bool isByte = c <= 0xFF;
  out += isByte ? "\\x" : "\\u";
  for (int shift = isByte ? 4 : 12; shift >= 0; shift -= 4) out += "0123456789ABCDEF"[c >> shift & 0xF];
}

std::string TwoDigits(int64_t number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

// No branches and no way out of the loop, so that many characters are looked at at once.
bool IsPlainText(std::string_view text) {
  unsigned char unusual = 0;
  for (const char c : text) {
    const auto offset = static_cast<unsigned char>(c - 0x20);
    unusual |= static_cast<unsigned char>((offset > 0x5E) & (c != '\t'));
  }
  return unusual == 0;
}

void AppendDisplayText(std::string& out, std::string_view text) {
  const auto isPlain = [](char c) { return (c >= 0x20 && c < 0x7F) || c == '\t'; };
  if (IsPlainText(text)) {
    out += text;
    return;
  }
  for (size_t i = 0; i < text.size();) {
    const auto start = text.begin() + static_cast<std::ptrdiff_t>(i);
    const auto plainEnd = std::find_if_not(start, text.end(), isPlain);
    out.append(start, plainEnd);
    i = static_cast<size_t>(plainEnd - text.begin());
    if (i == text.size()) return;
    const char32_t c = NextCodePoint(text, i);
    if (c >= kInvalidByte) {
      AppendUtf8(out, U'\uFFFD');
    } else if (IsDisruptive(c)) {
      AppendHex(out, c);
    } else {
      AppendUtf8(out, c);
    }
  }
}

std::string DisplayLine(std::string_view text) {
  std::string line;
  for (const std::string& part : SplitLines(text)) {
    if (!line.empty()) line += ' ';
    AppendDisplayText(line, part);
  }
  std::ranges::replace(line, '\t', ' ');
  return line;
}

std::string FitColumns(std::string_view line, size_t columns) {
  constexpr std::string_view kGap = "...";
  std::string fitted(line);
  if (ColumnsOf(line) > columns) {
    const size_t kept = columns - std::min(columns, kGap.size());
    fitted = Head(line, kept - kept / 2);
    fitted.append(kGap.substr(0, columns)).append(Tail(line, kept / 2));
  }
  return fitted.append(columns - ColumnsOf(fitted), ' ');
}

StringList WrapColumns(std::string_view line, size_t columns) {
  const size_t room = std::max<size_t>(columns, 2);  // for the widest character
  StringList lines;
  for (;;) {
    const std::string_view head = Head(line, room);
    if (head.size() == line.size()) break;
    // The blank at which the line is broken may be the one that no longer fits.
    const size_t blank = line.substr(0, head.size() + 1).rfind(' ');
    const bool atBlank = blank != std::string_view::npos && blank > line.find_first_not_of(' ');
    lines.emplace_back(line.substr(0, atBlank ? blank : head.size()));
    line.remove_prefix(atBlank ? blank + 1 : head.size());
  }
  lines.emplace_back(line);
  return lines;
}

std::string ElapsedText(double seconds) {
  // A clock that was set back, or a number that is none, reads as no time at all.
  seconds = seconds > 0 ? std::min(seconds, 1e9) : 0;
  const int64_t hundredths = std::llround(seconds * 100), tenths = std::llround(seconds * 10);
  if (hundredths < 1000) return std::to_string(hundredths / 100) + '.' + TwoDigits(hundredths % 100) + " s";
  if (tenths < 600) return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " s";
  const int64_t whole = std::llround(seconds), minutes = whole / 60;
  const std::string rest = " min " + TwoDigits(whole % 60) + " s";
  if (minutes < 60) return std::to_string(minutes) + rest;
  return std::to_string(minutes / 60) + " h " + TwoDigits(minutes % 60) + rest;
}

std::string CountText(int64_t count, std::string_view noun) {
  return std::to_string(count).append(" ").append(noun).append(count == 1 ? "" : "s");
}
