#include "platform/RegistryFormat.h"

#include <algorithm>
#include <charconv>

#include "platform/TextEncoding.h"

namespace {

constexpr bool IsText(RegistryType type) {
  return type == RegistryType::String || type == RegistryType::ExpandString;
}

bool HoldsControls(std::string_view text) {
  return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

std::string HexNumber(uint32_t number, size_t digits) {
  char text[9];
  const std::string plain(text, std::to_chars(text, text + sizeof text, number, 16).ptr);
  return std::string(digits - std::min(digits, plain.size()), '0') + plain;
}

uint32_t NumberOf(std::string_view littleEndian) {
  uint32_t number = 0;
  for (size_t i = littleEndian.size(); i-- > 0;) {
    number = number << 8 | static_cast<unsigned char>(littleEndian[i]);
  }
  return number;
}

std::string BytesOf(uint32_t number) {
  std::string bytes;
  for (int i = 0; i < 4; ++i, number >>= 8) bytes.push_back(static_cast<char>(number & 0xFF));
  return bytes;
}

/// Takes the hexadecimal number at the start of the text.
std::optional<uint32_t> TakeHex(std::string_view& text, size_t mostDigits) {
  uint32_t number = 0;
  const char* end = text.data() + std::min(text.size(), mostDigits);
  const auto [stop, error] = std::from_chars(text.data(), end, number, 16);
  if (error != std::errc()) return {};
  text.remove_prefix(static_cast<size_t>(stop - text.data()));
  return number;
}

/// Between the bytes of a long list stand backslashes at the ends of its lines.
void SkipGaps(std::string_view& text) {
  constexpr std::string_view kGaps = " \t\r\n\\";
  text.remove_prefix(std::min(text.find_first_not_of(kGaps), text.size()));
}

std::optional<std::string> TakeBytes(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() / 3 + 1);
  for (SkipGaps(text); !text.empty(); SkipGaps(text)) {
    const auto byte = TakeHex(text, 2);
    if (!byte) return {};
    bytes.push_back(static_cast<char>(*byte));
    SkipGaps(text);
    if (text.empty()) break;
    if (text.front() != ',') return {};
    text.remove_prefix(1);
  }
  return bytes;
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
  if (!SameText(text.substr(0, prefix.size()), prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

}  // namespace

std::string_view RegistryRootName(uint32_t root) {
  const auto* row = std::ranges::find(kRegistryRoots, root, &RegistryRootRow::root);
  return row == std::end(kRegistryRoots) ? std::string_view() : row->name;
}

std::string RegistryPath(std::string_view path) {
  std::string result;
  for (const std::string& name : SplitAt(path, "\\")) {
    if (!name.empty()) result.append(result.empty() ? "" : "\\").append(name);
  }
  return result;
}

bool IsRegistryName(std::string_view name) { return !HoldsControls(name) && IsUtf8(name); }

std::string EncodeRegistryName(std::string_view name) { return name.empty() ? "@" : Quoted(name); }

std::string EncodeRegistryValue(const RegistryValue& value) {
  if (value.type == RegistryType::String && !HoldsControls(value.data)) return Quoted(value.data);
  if (value.type == RegistryType::DWord && value.data.size() == 4) {
    return "dword:" + HexNumber(NumberOf(value.data), 8);
  }
  std::string text = "hex";
  if (value.type != RegistryType::Binary) {
    text += '(' + HexNumber(static_cast<uint32_t>(value.type), 1) + ')';
  }
  char separator = ':';
  for (const char byte : RegistryBytes(value)) {
    text += separator + HexNumber(static_cast<unsigned char>(byte), 2);
    separator = ',';
  }
  return separator == ':' ? text + ':' : text;
}

std::optional<RegistryValue> DecodeRegistryValue(std::string_view text) {
  if (text.size() > 1 && text.front() == '"') {
    return RegistryValue{RegistryType::String, UnescapeRegistryText(text.substr(1, text.size() - 2))};
  }
  if (TakePrefix(text, "dword:")) {
    const auto number = TakeHex(text, 8);
    if (!number || !text.empty()) return {};
    return RegistryValue{RegistryType::DWord, BytesOf(*number)};
  }
  RegistryType type = RegistryType::Binary;
  if (!TakePrefix(text, "hex")) return {};
  if (TakePrefix(text, "(")) {
    const auto number = TakeHex(text, 8);
    if (!number || !TakePrefix(text, ")")) return {};
    type = static_cast<RegistryType>(*number);
  }
  if (!TakePrefix(text, ":")) return {};
  auto bytes = TakeBytes(text);
  if (!bytes) return {};
  return RegistryValueOf(type, std::move(*bytes));
}

std::string UnescapeRegistryText(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const char c = text[++i];
    plain += c == 'n' ? '\n' : c == 'r' ? '\r' : c;
  }
  return plain;
}

RegistryValue RegistryValueOf(RegistryType type, std::string bytes) {
  if (!IsText(type)) return {type, std::move(bytes)};
  std::string text = DecodeUtf16(bytes, TextEncoding::Utf16Le);
  text.resize(std::min(text.find('\0'), text.size()));
  return {type, std::move(text)};
}

std::string RegistryBytes(const RegistryValue& value) {
  if (!IsText(value.type)) return value.data;
  return EncodeUtf16(value.data, TextEncoding::Utf16Le) + std::string(2, '\0');
}
