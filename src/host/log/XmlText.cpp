#include "host/log/XmlText.h"

#include "base/Text.h"

namespace {

enum class Place { Text, Attribute };

/// What stands for the character, or nothing when it stands for itself.
std::string_view Escaped(char32_t c, Place place) {
  const bool inAttribute = place == Place::Attribute;
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\r':
      return "&#13;";  // a bare one is read as a line feed
    case '"':
      return inAttribute ? "&quot;" : "";
    case '\t':
      return inAttribute ? "&#9;" : "";
    case '\n':
      return inAttribute ? "&#10;" : "";
    default:
      return c < 0x20 || c == 0xFFFE || c == 0xFFFF || c >= kInvalidByte ? "\xEF\xBF\xBD" : "";
  }
}

/// Whether the byte stands for itself wherever it is: most text is made of such.
constexpr bool IsPlain(char c) {
  return c >= ' ' && c < 0x7F && c != '&' && c != '<' && c != '>' && c != '"';
}

std::string Escape(std::string_view text, Place place) {
  std::string result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    const size_t start = i;
    while (i < text.size() && IsPlain(text[i])) ++i;
    result += text.substr(start, i - start);
    if (i == text.size()) break;
    const size_t special = i;
    const std::string_view escaped = Escaped(NextCodePoint(text, i), place);
    result += escaped.empty() ? text.substr(special, i - special) : escaped;
  }
  return result;
}

}  // namespace

std::string EscapeXmlText(std::string_view text) { return Escape(text, Place::Text); }

std::string EscapeXmlAttribute(std::string_view text) { return Escape(text, Place::Attribute); }
