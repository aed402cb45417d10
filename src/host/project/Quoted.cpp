#include "host/project/Quoted.h"

#include <cstdio>

#include "base/DisruptiveCharacters.h"
#include "base/NearestName.h"
#include "base/Text.h"

namespace {

constexpr size_t kLongest = 80;  // characters of a quoted text
constexpr size_t kNoLimit = std::string_view::npos;

std::string Hex(const char* format, char32_t c) {
  char text[16];
  std::snprintf(text, sizeof text, format, static_cast<unsigned>(c));
  return text;
}

void AppendShown(std::string& shown, char32_t c) {
  if (c == '\n') {
    shown += "\\n";
  } else if (c == '\r') {
    shown += "\\r";
  } else if (c == '\t') {
    shown += "\\t";
  } else if (c < 0x20) {
    shown += Hex("\\x%02X", c);
  } else if (c >= kInvalidByte) {
    shown += Hex("\\x%02X", c - kInvalidByte);
  } else if (IsDisruptive(c)) {
    shown += Hex("\\u%04X", c);
  } else {
    AppendUtf8(shown, c);
  }
}

std::string Shown(std::string_view text, size_t limit) {
  std::string shown;
  size_t count = 0;
  for (size_t i = 0; i < text.size(); ++count) {
    if (count == limit) return shown + "...";
    AppendShown(shown, NextCodePoint(text, i));
  }
  return shown;
}

}  // namespace

std::string OneLine(std::string_view text) { return Shown(text, kNoLimit); }
std::string Quoted(std::string_view text) { return '"' + Shown(text, kLongest) + '"'; }

std::string Suggestion(std::string_view name, std::span<const std::string_view> candidates) {
  // No slip of the finger makes a name that long, and comparing takes time.
  constexpr size_t kLongestName = 100;
  return name.size() > kLongestName ? std::string() : DidYouMean(name, candidates);
}
