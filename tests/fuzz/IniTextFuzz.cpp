#include <algorithm>

#include "fuzz/Fuzz.h"
#include "platform/IniText.h"

namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r\x1A";

std::string Trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(kBlanks);
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool HoldsUtf16(const std::string& contents) {
  return contents.starts_with("\xFF\xFE") || contents.starts_with("\xFE\xFF");
}

/// The text of the file, in UTF-8 without a mark.
std::string PlainText(const std::string& contents) {
  if (contents.starts_with("\xFF\xFE")) return DecodeUtf16(contents, TextEncoding::Utf16Le).substr(3);
  if (contents.starts_with("\xFE\xFF")) return DecodeUtf16(contents, TextEncoding::Utf16Be).substr(3);
  return contents.starts_with("\xEF\xBB\xBF") ? contents.substr(3) : contents;
}

/// Reads line by line up to the key.
std::optional<std::string> SlowFind(const std::string& contents, const std::string& section,
                                    const std::string& key) {
  bool inSection = false, wasFound = false;
  for (const std::string& whole : SplitLines(PlainText(contents))) {
    const std::string line = Trimmed(whole);
    if (line.starts_with('[') && line.find(']') != line.npos) {
      const std::string name = Trimmed(line.substr(1, line.rfind(']') - 1));
      inSection = !wasFound && SameText(name, Trimmed(section));
      wasFound = wasFound || inSection;
    } else if (inSection && !line.empty()) {
      const size_t equals = line.find('=');
      if (!SameText(Trimmed(line.substr(0, equals)), Trimmed(key))) continue;
      if (equals == line.npos) return {};
      return std::string(IniValue(line.substr(equals + 1)));
    }
  }
  return {};
}

/// All that can be asked of a text.
std::string Told(const IniText& text) {
  std::string told;
  for (const std::string& section : text.Sections()) {
    told += '[' + section + "]\n";
    for (const auto& [name, value] : text.Entries(section)) {
      told += name + '=' + value + " first " + text.Find(section, name).value_or("none") + '\n';
    }
  }
  return told;
}

bool IsOrdinary(const std::string& section, const std::string& key, const std::string& value) {
  const auto isOneLine = [](const std::string& text) { return text.find_first_of("\r\n") == text.npos; };
  return isOneLine(section) && isOneLine(key) && isOneLine(value) && !Trimmed(key).empty() &&
         !Trimmed(key).starts_with('[') && key.find('=') == key.npos;
}

void Set(IniText& text, const std::string& section, const std::string& key, const std::string& value) {
  const std::string before = PlainText(text.Contents());
  text.Set(section, key, value);
  if (!IsOrdinary(section, key, value)) return;
  const auto found = text.Find(section, key);
  Require(found.has_value(), "the key is not found");
  if (HoldsUtf16(text.Contents()) && !IsUtf8(value)) return;
  RequireSame(*found, IniValue(value), "the value");
  CheckOtherLines(SplitLines(before), SplitLines(PlainText(text.Contents())), 1, 2);
}

void CheckAgree(const IniText& text, const std::string& section, const std::string& key) {
  RequireSame(Told(text), Told(IniText(text.Contents())), "what is told and what the bytes say");
  // UTF-16 holds no other names; what becomes of them is not for a slow reader.
  if (HoldsUtf16(text.Contents()) && !IsUtf8(section + '|' + key)) return;
  RequireSame(text.Find(section, key).value_or("(none)"),
              SlowFind(text.Contents(), section, key).value_or("(none)"), "the slow reader");
}

/// A field of the input: what to do with which section, key and value.
void Change(IniText& text, const std::string& field) {
  StringList words = SplitAt(field, "|");
  words.resize(std::max<size_t>(words.size(), 4));
  const std::string &section = words[1], &key = words[2];
  CheckAgree(text, section, key);
  if (words[0] == "d") {
    text.Remove(section, key);
  } else if (words[0] == "e") {
    text.RemoveSection(section);
  } else {
    Set(text, section, key, words[3]);
  }
  CheckAgree(text, section, key);
}

std::string Utf16(const std::string& text, TextEncoding encoding) {
  return EncodeUtf16("\xEF\xBB\xBF" + text, encoding);
}

}  // namespace

FuzzFormat TargetFormat() {
  const std::string file = "; head\r\n\r\n[S]\r\na=1\r\nbare\r\n\r\n[T]\r\nB = \"2\"\r\n[s]\r\na=3";
  const std::string changes =
      "\x1Fw|S|a|longer\x1Fw|new|k|v\x1F"
      "d|S|a\x1F"
      "e|T";
  return {.seeds = {file + changes, "\xEF\xBB\xBFx=0\n[S]\n\n  a=1\n;g=2\n" + changes,
                    Utf16(file, TextEncoding::Utf16Le) + changes,
                    Utf16(file, TextEncoding::Utf16Be) + changes, changes},
          .words = Words(
              "[\0S\0]\0~[~]~=~;~\r\n~\n~\r~ ~\t~\"~'~\"q\"~[S]~[T]~a=~a~B~S~|~w|~d|~e|~\x1A~\xEF\xBB\xBF~"
              "\xFF\xFE~\xFE\xFF~\0~\xC3\xA4~\xC3\x84~\xD8~\xDC~\xFF~\x1F~\x1Fw|~\x1F"
              "d|S|a"),
          .runs = 1'500};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const StringList fields = Fields(InputText(data, size), 1);
  const std::string& contents = fields[0];
  for (const TextEncoding encoding : {TextEncoding::Utf16Le, TextEncoding::Utf16Be}) {
    const std::string whole = contents.substr(0, contents.size() & ~size_t{1});
    RequireSame(EncodeUtf16(DecodeUtf16(whole, encoding), encoding), whole, "UTF-16");
  }
  IniText text(contents);
  RequireSame(text.Contents(), contents, "contents");
  for (size_t i = 1; i < fields.size(); ++i) Change(text, fields[i]);
  return 0;
}
