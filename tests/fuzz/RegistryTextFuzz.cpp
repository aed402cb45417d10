#include <algorithm>

#include "fuzz/Fuzz.h"
#include "platform/RegistryFormat.h"
#include "platform/RegistryText.h"

namespace {

const std::string kRoot = "HKEY_USERS";

void TellOfKey(const RegistryText& text, const std::string& key, std::string& told) {
  told += '[' + key + "]\n";
  for (const std::string& name : text.Values(key)) {
    told += name + '=' + std::string(text.Find(key, name).value_or("(none)")) + '\n';
  }
  for (const std::string& below : text.SubKeys(key)) TellOfKey(text, key + '\\' + below, told);
}

/// All that can be asked of a text.
std::string Told(const RegistryText& text) {
  std::string told;
  for (const RegistryRootRow& row : kRegistryRoots) TellOfKey(text, std::string(row.name), told);
  return told;
}

/// What the bytes say is what the text tells after its changes.
void CheckAgree(const RegistryText& text) {
  RegistryText again;
  const auto fault = again.Load(text.Contents());
  Require(!fault, "a text is refused that was made by changes: " + Literal(text.Contents()));
  RequireSame(Told(again), Told(text), "what is told and what the bytes say");
}

bool IsOneOf(const StringList& names, const std::string& name) {
  return std::ranges::any_of(names, [&](const std::string& other) { return SameText(name, other); });
}

void Set(RegistryText& text, const std::string& key, const std::string& name, const std::string& data) {
  const RegistryValue value{RegistryType::String, data};
  const std::string before = text.Contents();
  const auto lines = std::ranges::count(text.Find(key, name).value_or(""), '\n') + 1;
  text.Set(key, name, EncodeRegistryValue(value));
  const auto found = text.Find(key, name);
  Require(found && DecodeRegistryValue(*found) == RegistryValueOf(RegistryType::String, RegistryBytes(value)),
          "the value is not found");
  Require(IsOneOf(text.Values(key), name), "the value is not listed");
  if (EncodingOf(before) != TextEncoding::Plain) return;
  // A new key comes with an empty line before it, and a file begins with its title.
  CheckOtherLines(SplitAt(before, "\n"), SplitAt(text.Contents(), "\n"), lines, 5);
}

/// A field of the input: what to do with which key, name and value.
void Change(RegistryText& text, const std::string& field) {
  StringList words = SplitAt(field, "|");
  words.resize(std::max<size_t>(words.size(), 4));
  const std::string below = RegistryPath(words[1]);
  const std::string key = below.empty() ? kRoot : kRoot + '\\' + below, &name = words[2];
  if (!IsRegistryName(key) || !IsRegistryName(name)) return;
  if (words[0] == "d") {
    const bool exists = text.Find(key, name).has_value();
    Require(text.Remove(key, name) == exists && !text.Find(key, name), "the value is still there");
  } else if (words[0] == "k") {
    text.AddKey(key);
    Require(text.HasKey(key), "the key is missing");
  } else if (IsUtf8(words[3]) && words[3].find('\0') == words[3].npos) {
    Set(text, key, name, words[3]);
  }
  CheckAgree(text);
}

/// Every value that is read has a text that reads as the same value.
void CheckValue(const std::string& text) {
  const auto value = DecodeRegistryValue(text);
  if (!value || !IsUtf8(value->data)) return;
  Require(
      DecodeRegistryValue(EncodeRegistryValue(*value)) == RegistryValueOf(value->type, RegistryBytes(*value)),
      "the value changes: " + Literal(text));
}

}  // namespace

FuzzFormat TargetFormat() {
  const std::string head = std::string(kRegistryHeader) + "\r\n\r\n";
  const std::string keys =
      "; c\r\n[HKEY_USERS\\A]\r\n@=\"x\"\r\n\"a\"=dword:0000000a\r\n\"b\"=hex:01,\\\r\n  02\r\n"
      "\"a\"=-\r\n\"q\"=str:?\r\n\r\n[HKEY_USERS\\A\\B]\r\n[-HKEY_USERS\\C]\r\n";
  const std::string changes =
      "\x1Fw|A|a|text\x1Fk|C\\D|x\x1Fw|C|\"|\\\x1F"
      "d|a|A";
  return {.seeds = {head + keys + changes, kUtf8Mark.data() + head + keys + changes,
                    EncodeUtf16("\xEF\xBB\xBF" + head + keys, TextEncoding::Utf16Le) + changes, changes,
                    "\x1Fhex(7):61,00,00,00\x1F\"a\\\\\\\"b\""},
          .words = Words("[HKEY_USERS\\A]~[-HKEY_USERS\\A]~[HKEY_USERS]~\\~\\B~\"a\"=~@=~\"~=-~=~dword:~hex:~"
                         "hex(2):~00,~,\\\r\n  ~str(7):~;~\r\n~\n~\r~ ~\\\\~\\\"~|~\x1Fw|A|a|~\x1F"
                         "d|A|a~"
                         "\x1Fk|A\\B~\x1F~\xC3\xA4~\xC3\x84~\xFF~\0~]~[~-"),
          .runs = 1'500};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const StringList fields = Fields(InputText(data, size), 1);
  RegistryText text;
  const auto fault = text.Load(fields[0]);
  if (fault) Require(fault->line > 0 && text.Contents().empty(), "a refused text leaves something");
  if (!fault) RequireSame(text.Contents(), fields[0], "contents");
  for (size_t i = 1; i < fields.size(); ++i) {
    CheckValue(fields[i]);
    Change(text, fields[i]);
  }
  return 0;
}
