#include "platform/RegistryText.h"

#include <algorithm>

#include "platform/RegistryFormat.h"

namespace {

// Sorts before every character of a name, so that all that is below a key follows it.
constexpr char kSeparator = '\x01';
constexpr std::string_view kRemoved = "-";

/// What a key is looked up by.
std::string Canonical(std::string_view path) {
  std::string canonical = UpCase(path);
  std::ranges::replace(canonical, '\\', kSeparator);
  return canonical;
}

std::string_view LastName(std::string_view path) { return path.substr(path.rfind('\\') + 1); }

}  // namespace

std::optional<RegistryFault> RegistryText::Load(const std::string& contents) {
  *this = RegistryText();
  const TextEncoding encoding = EncodingOf(contents);
  const std::string decoded = encoding == TextEncoding::Plain ? "" : DecodeUtf16(contents, encoding);
  const std::string_view text = encoding == TextEncoding::Plain ? contents : decoded;
  if (encoding != TextEncoding::Plain && contents.size() % 2 != 0) {
    const auto line = static_cast<size_t>(std::ranges::count(text, '\n')) + 1;
    return RegistryFault{line, "half a character stands at the end"};
  }
  if (text.empty()) return {};
  const size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
  std::string_view title = text.substr(0, end);
  if (title.starts_with(kUtf8Mark)) title.remove_prefix(kUtf8Mark.size());
  if (Trim(title) != kRegistryHeader) {
    return RegistryFault{1, '"' + std::string(kRegistryHeader) + "\" is missing"};
  }
  encoding_ = encoding;
  if (title.ends_with('\n') && !title.ends_with("\r\n")) lineBreak_ = "\n";
  sections_.push_back({{{std::string(text.substr(0, end))}}, 1});
  auto fault = Read(text.substr(end));
  if (fault) *this = RegistryText();
  return fault;
}

/// Reads all behind the first line.
std::optional<RegistryFault> RegistryText::Read(std::string_view text) {
  RegistryScanner scanner(text, 2);
  RegistryPiece piece;
  Key* key = nullptr;
  while (scanner.Next(piece)) {
    if (piece.kind == RegistryPiece::Kind::RemovedKey) RemoveKey(piece.name);
    const bool isKey = piece.kind == RegistryPiece::Kind::Key;
    if (isKey || piece.kind == RegistryPiece::Kind::RemovedKey) {
      key = isKey ? &KeyAt(piece.name) : nullptr;
      if (isKey) key->section = sections_.size();
      sections_.push_back({{}, 1});
    }
    Section& section = sections_.back();
    if (piece.kind == RegistryPiece::Kind::Value) {
      // What stands below a removed key belongs to none.
      if (key) key->values.emplace(UpCase(piece.name), Position{sections_.size() - 1, section.items.size()});
      section.newValue = section.items.size() + 1;
    }
    section.items.push_back({std::string(piece.raw), piece.name, piece.value, piece.valueSize});
  }
  return scanner.Fault();
}

std::string RegistryText::Contents() const {
  std::string text;
  for (const Section& section : sections_) {
    for (const Item& item : section.items) text += item.raw;
  }
  return encoding_ == TextEncoding::Plain ? text : EncodeUtf16(text, encoding_);
}

/// The entry of a key, made with those above it where it is not known yet.
RegistryText::Key& RegistryText::KeyAt(std::string_view path) {
  const auto [found, isNew] = keys_.try_emplace(Canonical(path));
  if (!isNew) return found->second;
  found->second.name = LastName(path);
  if (const size_t above = path.rfind('\\'); above != std::string_view::npos) KeyAt(path.substr(0, above));
  return found->second;
}

const RegistryText::Key* RegistryText::FindKey(std::string_view path) const {
  const auto found = keys_.find(Canonical(path));
  return found == keys_.end() ? nullptr : &found->second;
}

void RegistryText::RemoveKey(std::string_view path) {
  const std::string canonical = Canonical(path);
  keys_.erase(canonical);
  const std::string below = canonical + kSeparator;
  auto last = keys_.lower_bound(below);
  while (last != keys_.end() && last->first.starts_with(below)) last = keys_.erase(last);
}

std::optional<RegistryText::Position> RegistryText::Last(const Key& key, std::string_view name) {
  std::optional<Position> last;
  const auto [begin, end] = key.values.equal_range(UpCase(name));
  for (auto at = begin; at != end; ++at) last = std::max(last, std::optional(at->second));
  return last;
}

std::string_view RegistryText::ValueAt(Position position) const {
  const Item& item = sections_[position.section].items[position.item];
  return std::string_view(item.raw).substr(item.value, item.valueSize);
}

// The roots are always there.
bool RegistryText::HasKey(std::string_view path) const {
  return path.find('\\') == std::string_view::npos || FindKey(path) != nullptr;
}

std::optional<std::string_view> RegistryText::Find(std::string_view path, std::string_view name) const {
  const Key* key = FindKey(path);
  const auto last = key ? Last(*key, name) : std::nullopt;
  if (!last || ValueAt(*last) == kRemoved) return {};
  return ValueAt(*last);
}

StringList RegistryText::SubKeys(std::string_view path) const {
  StringList names;
  const std::string below = Canonical(path) + kSeparator;
  auto key = keys_.lower_bound(below);
  while (key != keys_.end() && key->first.starts_with(below)) {
    names.push_back(key->second.name);
    key = keys_.lower_bound(key->first + static_cast<char>(kSeparator + 1));
  }
  return names;
}

StringList RegistryText::Values(std::string_view path) const {
  const Key* key = FindKey(path);
  if (!key) return {};
  std::vector<Position> positions;
  for (const auto& [name, position] : key->values) {
    if (Last(*key, name) == position && ValueAt(position) != kRemoved) positions.push_back(position);
  }
  std::ranges::sort(positions);
  StringList names;
  for (const Position& at : positions) names.push_back(sections_[at.section].items[at.item].name);
  return names;
}

/// The place of a key's values in the text; a new one comes at the end.
size_t RegistryText::SectionOf(std::string_view path) {
  Key& key = KeyAt(path);
  if (key.section) return *key.section;
  if (sections_.empty()) sections_.push_back({{{std::string(kRegistryHeader) + lineBreak_}}, 1});
  const std::vector<Item>& before = sections_.back().items;
  const std::string& last = before.back().raw;
  std::string gap = last.ends_with('\n') ? "" : lineBreak_;
  if (!Trim(last).empty()) gap += lineBreak_;
  key.section = sections_.size();
  sections_.push_back({{{gap + '[' + std::string(path) + ']' + lineBreak_}}, 1});
  return *key.section;
}

void RegistryText::AddKey(std::string_view path) {
  if (!HasKey(path)) SectionOf(path);
}

void RegistryText::Set(std::string_view path, std::string_view name, std::string_view value) {
  const size_t index = SectionOf(path);
  Key& key = KeyAt(path);
  if (const auto last = Last(key, name)) {
    Item& item = sections_[last->section].items[last->item];
    item.raw.replace(item.value, item.valueSize, value);
    item.valueSize = value.size();
    return;
  }
  Section& section = sections_[index];
  if (std::string& before = section.items[section.newValue - 1].raw;
      !before.empty() && !before.ends_with('\n')) {
    before += lineBreak_;
  }
  const std::string start = EncodeRegistryName(name) + '=';
  key.values.emplace(UpCase(name), Position{index, section.newValue});
  section.items.insert(
      section.items.begin() + static_cast<std::ptrdiff_t>(section.newValue++),
      {start + std::string(value) + lineBreak_, std::string(name), start.size(), value.size()});
}

bool RegistryText::Remove(std::string_view path, std::string_view name) {
  if (!Find(path, name)) return false;
  Key& key = KeyAt(path);
  const auto [begin, end] = key.values.equal_range(UpCase(name));
  for (auto at = begin; at != end; ++at) {
    Item& item = sections_[at->second.section].items[at->second.item];
    item = {};
  }
  key.values.erase(begin, end);
  return true;
}

std::optional<RegistryFault> RegistryText::Apply(std::string_view changes) {
  RegistryScanner scanner(changes);
  RegistryPiece piece;
  std::string key;
  while (scanner.Next(piece)) {
    if (piece.kind == RegistryPiece::Kind::Key) AddKey(key = piece.name);
    if (piece.kind != RegistryPiece::Kind::Value) continue;
    const std::string_view value = piece.raw.substr(piece.value, piece.valueSize);
    value == kRemoved ? static_cast<void>(Remove(key, piece.name)) : Set(key, piece.name, value);
  }
  return scanner.Fault();
}
