#include "host/project/ProjectText.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "base/Text.h"
#include "host/project/Quoted.h"

namespace {

constexpr std::pair<std::string_view, char> kEntities[] = {
    {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};

constexpr std::string_view kReferenceCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789#_.:-";

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20; }

bool MustEscape(char c, XmlPlace place, std::string_view before) {
  switch (c) {
    case '<':
    case '&':
      return true;
    case '>':
      return before.ends_with("]]");
    case '"':
    case '\t':
    case '\n':
      return place == XmlPlace::Attribute;
    default:
      return IsControl(c);
  }
}

/// The character of what stands between '&' and ';'; nothing when XML has no such character.
std::optional<char32_t> Referenced(std::string_view name) {
  for (const auto& [entity, character] : kEntities) {
    if (name == entity) return character;
  }
  if (!name.starts_with('#')) return {};
  name.remove_prefix(1);
  const int base = name.starts_with('x') ? 16 : 10;
  if (base == 16) name.remove_prefix(1);
  uint32_t code = 0;
  const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), code, base);
  if (error != std::errc() || stop != name.data() + name.size()) return {};
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return {};
  return code;
}

}  // namespace

void AppendXmlText(std::string& xml, std::string_view text, XmlPlace place) {
  if (!IsUtf8(text)) throw EVekError(Quoted(text) + " is not UTF-8 and cannot be stored");
  if (text.find('\0') != std::string_view::npos)
    throw EVekError(Quoted(text) + " holds NUL and cannot be stored");
  for (size_t i = 0; i < text.size(); ++i) {
    if (!MustEscape(text[i], place, text.substr(0, i))) {
      xml += text[i];
    } else if (IsControl(text[i])) {
      xml.append("&#").append(std::to_string(static_cast<int>(text[i]))).append(";");
    } else {
      for (const auto& [entity, character] : kEntities) {
        if (character == text[i]) xml.append("&").append(entity).append(";");
      }
    }
  }
}

void AppendXmlScript(std::string& xml, std::string_view text) {
  const bool needsEscape = text.find_first_of("<&") != std::string_view::npos;
  const auto cannotStand = [](char c) { return IsControl(c) && c != '\t' && c != '\n'; };
  if (!needsEscape || !IsUtf8(text) || text.find("]]>") != std::string_view::npos ||
      std::ranges::any_of(text, cannotStand)) {
    return AppendXmlText(xml, text, XmlPlace::Element);
  }
  xml.append("<![CDATA[").append(text).append("]]>");
}

std::string DecodeXmlText(std::string_view xml) {
  std::string text;
  size_t position = 0;
  for (size_t mark; (mark = xml.find('&', position)) != std::string_view::npos;) {
    text.append(xml, position, mark - position);
    const size_t end = std::min(xml.find_first_not_of(kReferenceCharacters, mark + 1), xml.size());
    if (xml.substr(end, 1) != ";") throw EXmlReference("a \"&\" must be written as &amp;", mark);
    const auto character = Referenced(xml.substr(mark + 1, end - mark - 1));
    if (!character)
      throw EXmlReference("undefined reference " + Quoted(xml.substr(mark, end + 1 - mark)), mark);
    AppendUtf8(text, *character);
    position = end + 1;
  }
  return text.append(xml, position);
}
