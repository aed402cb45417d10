#include "platform/IniText.h"

#include <algorithm>

#include "base/Text.h"

namespace {

constexpr std::string_view kNewFileBreak = "\r\n";

/// Ctrl-Z is how old editors end a file.
constexpr bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r') || c == '\x1A'; }

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// How a name is compared.
std::string Canonical(std::string_view name) { return UpCase(TrimBlanks(name)); }

/// Of a section's lines in the index.
std::string KeyPrefix(std::string_view section) { return Canonical(section) + '\n'; }
std::string LineKey(std::string_view section, std::string_view key) {
  return KeyPrefix(section) + Canonical(key);
}

bool HoldsLineBreak(std::string_view text) { return text.find_first_of("\r\n") != std::string_view::npos; }

/// Whether a line made of the two is read as these two, with its name and value where they were put.
bool ReadsBack(std::string_view key, std::string_view value) {
  return !key.empty() && key.front() != '[' && key.find('=') == std::string_view::npos &&
         !HoldsLineBreak(key) && !HoldsLineBreak(value) && TrimBlanks(value) == value;
}

/// The first line break of the text.
std::string_view LineBreakOf(std::string_view text) {
  const size_t at = text.find_first_of("\r\n");
  if (at == std::string_view::npos) return kNewFileBreak;
  return text.substr(at, text.substr(at, 2) == "\r\n" ? 2 : 1);
}

/// Where the line that begins at `begin` ends, and where the next one begins.
struct LineEnd {
  size_t content, next;
};
LineEnd EndOfLine(std::string_view text, size_t begin) {
  const size_t content = std::min(text.find_first_of("\r\n", begin), text.size());
  if (content == text.size()) return {content, content};
  return {content, content + (text.substr(content, 2) == "\r\n" ? 2 : 1)};
}

}  // namespace

std::string_view IniValue(std::string_view text) {
  text = TrimBlanks(text);
  const bool isQuoted =
      text.size() > 1 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
  return isQuoted ? text.substr(1, text.size() - 2) : text;
}

IniText::IniText(std::string contents) : encoding_(EncodingOf(contents)) {
  if (encoding_ == TextEncoding::Plain) {
    text_ = std::move(contents);
  } else {
    text_ = DecodeUtf16(contents, encoding_);
    if (contents.size() % 2 != 0) oddByte_ = contents.back();
    encoded_ = std::move(contents);
  }
  Reparse();
}

std::string_view IniText::Name(const Line& line) const {
  return std::string_view(text_).substr(line.begin + line.name, line.nameEnd - line.name);
}

std::string_view IniText::Value(const Line& line) const {
  return std::string_view(text_).substr(line.begin + line.value, line.end - line.value);
}

std::string IniText::AsStored(std::string_view text) const {
  if (encoding_ == TextEncoding::Plain) return std::string(text);
  return DecodeUtf16(EncodeUtf16(text, encoding_), encoding_);
}

const IniText::Section* IniText::FindSection(std::string_view name) const {
  const auto found = sectionIndex_.find(Canonical(AsStored(name)));
  return found == sectionIndex_.end() ? nullptr : &sections_[found->second];
}

const IniText::Line* IniText::FindLine(std::string_view section, std::string_view key) const {
  const auto found = lineIndex_.find(LineKey(AsStored(section), AsStored(key)));
  return found == lineIndex_.end() ? nullptr : &lines_[found->second];
}

std::optional<std::string> IniText::Find(std::string_view section, std::string_view key) const {
  const Line* line = FindLine(section, key);
  if (!line || line->value == 0) return {};
  return std::string(IniValue(Value(*line)));
}

StringList IniText::Sections() const {
  StringList names;
  for (const Section& section : sections_) names.push_back(section.name);
  return names;
}

std::vector<IniEntry> IniText::Entries(std::string_view name) const {
  std::vector<IniEntry> entries;
  const Section* section = FindSection(name);
  if (!section) return entries;
  for (size_t i = 1; i < section->lines.size(); ++i) {
    const Line& line = lines_[section->lines[i]];
    if (line.value == 0 || Name(line).starts_with(';')) continue;
    entries.push_back({std::string(Name(line)), std::string(IniValue(Value(line)))});
  }
  return entries;
}

void IniText::Reparse() {
  lines_.clear();
  sections_.clear();
  sectionIndex_.clear();
  lineIndex_.clear();
  lineBreak_ = LineBreakOf(text_);
  Parse(text_.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0);
}

void IniText::Parse(size_t from) {
  for (size_t begin = from; begin < text_.size();) {
    const LineEnd end = EndOfLine(text_, begin);
    ParseLine(begin, end.content, end.next);
    begin = end.next;
  }
}

void IniText::ParseLine(size_t begin, size_t contentEnd, size_t next) {
  const std::string_view whole = std::string_view(text_).substr(begin, contentEnd - begin);
  const std::string_view content = TrimBlanks(whole);
  if (content.empty()) return;
  const auto start = static_cast<size_t>(content.data() - whole.data());
  Line line{begin, start, start + content.size(), 0, start + content.size(), next - begin};
  const size_t bracket = content.front() == '[' ? content.rfind(']') : std::string_view::npos;
  if (bracket != std::string_view::npos) {
    // Header text may itself hold brackets; what follows the last one means nothing.
    const std::string_view name = TrimBlanks(content.substr(1, bracket - 1));
    const bool isFirst = sectionIndex_.try_emplace(UpCase(name), sections_.size()).second;
    sections_.push_back({std::string(name), isFirst ? KeyPrefix(name) : "", {lines_.size()}});
    lines_.push_back(line);
    return;
  }
  if (const size_t equals = content.find('='); equals != std::string_view::npos) {
    line.nameEnd = start + TrimBlanks(content.substr(0, equals)).size();
    size_t value = start + equals + 1;
    while (value < line.end && IsBlank(whole[value])) ++value;
    line.value = value;
  }
  AddLine(line);
}

/// Adds a line to the section read last. Lines before the first one belong to none.
void IniText::AddLine(const Line& line) {
  if (sections_.empty()) return;
  Section& section = sections_.back();
  if (!section.keyPrefix.empty()) {
    lineIndex_.try_emplace(section.keyPrefix + Canonical(Name(line)), lines_.size());
  }
  section.lines.push_back(lines_.size());
  lines_.push_back(line);
}

void IniText::Set(std::string_view section, std::string_view key, std::string_view value) {
  if (encoding_ == TextEncoding::Plain) return SetText(section, key, value);
  SetText(AsStored(section), AsStored(key), AsStored(value));
  Encode();
}

void IniText::SetText(std::string_view section, std::string_view key, std::string_view value) {
  if (const auto line = lineIndex_.find(LineKey(section, key)); line != lineIndex_.end()) {
    SetValue(line->second, value);
  } else if (const auto found = sectionIndex_.find(Canonical(section)); found != sectionIndex_.end()) {
    AddKey(found->second, key, value);
  } else {
    AddSection(section, key, value);
  }
}

bool IniText::SetEntries(std::string_view section, std::span<const IniEntry> entries, OtherLines others) {
  const bool removed = others == OtherLines::Remove && RemoveSection(section);
  for (const IniEntry& entry : entries)
    SetText(AsStored(section), AsStored(entry.name), AsStored(entry.value));
  Encode();
  return removed || !entries.empty();
}

/// A line that is a bare name becomes the key's.
void IniText::SetValue(size_t index, std::string_view value) {
  const Line line = lines_[index];
  const bool isBare = line.value == 0;
  const size_t from = isBare ? line.nameEnd : line.value;
  const size_t contentEnd = EndOfLine(text_, line.begin).content - line.begin;
  const std::string by = (isBare ? "=" : "") + std::string(value);
  const bool readsBack = ReadsBack(Name(line), value);
  Replace(line.begin + from, contentEnd - from, by);
  if (!readsBack) return Reparse();
  Line& changed = lines_[index];
  changed.value = from + (isBare ? 1 : 0);
  changed.end = from + by.size();
  changed.size = line.size - (contentEnd - from) + by.size();
}

void IniText::AddKey(size_t index, std::string_view key, std::string_view value) {
  Section& section = sections_[index];
  const Line last = lines_[section.lines.back()];
  key = TrimBlanks(key);
  const bool endsInBreak = EndOfLine(text_, last.begin).content - last.begin < last.size;
  const std::string content = std::string(key).append("=").append(value);
  const size_t begin = last.begin + last.size;
  Replace(begin, 0, (endsInBreak ? "" : lineBreak_) + content + lineBreak_);
  if (!endsInBreak || !ReadsBack(key, value)) return Reparse();
  lineIndex_.emplace(section.keyPrefix + UpCase(key), lines_.size());
  section.lines.push_back(lines_.size());
  lines_.push_back(
      {begin, 0, key.size(), key.size() + 1, content.size(), content.size() + lineBreak_.size()});
}

void IniText::AddSection(std::string_view section, std::string_view key, std::string_view value) {
  const bool isEmpty = text_.empty() || text_ == kUtf8Mark;
  const bool endsInBreak = isEmpty || HoldsLineBreak(std::string_view(text_).substr(text_.size() - 1));
  if (!endsInBreak) text_ += lineBreak_;
  const size_t from = text_.size();
  text_.append("[").append(TrimBlanks(section)).append("]").append(lineBreak_);
  text_.append(TrimBlanks(key)).append("=").append(value).append(lineBreak_);
  endsInBreak ? Parse(from) : Reparse();
}

bool IniText::Remove(std::string_view section, std::string_view key) {
  const Line* line = FindLine(section, key);
  if (!line) return false;
  text_.erase(line->begin, line->size);
  Reparse();
  Encode();
  return true;
}

bool IniText::RemoveSection(std::string_view name) {
  const Section* section = FindSection(name);
  if (!section) return false;
  const auto next = static_cast<size_t>(section - sections_.data()) + 1;
  const size_t begin = lines_[section->lines.front()].begin;
  const size_t end = next == sections_.size() ? text_.size() : lines_[sections_[next].lines.front()].begin;
  text_.erase(begin, end - begin);
  Reparse();
  Encode();
  return true;
}

/// Exchanges a piece of the text that lies within one line, or between two.
void IniText::Replace(size_t position, size_t size, std::string_view by) {
  text_.replace(position, size, by);
  const size_t grown = by.size() - size;  // wraps around where the text shrinks
  for (Line& line : lines_) {
    if (line.begin >= position) line.begin += grown;
  }
}

void IniText::Encode() {
  if (encoding_ != TextEncoding::Plain) encoded_ = EncodeUtf16(text_, encoding_) + oddByte_;
}
