#include "gmock/gmock.h"

#include "platform/RegistryFormat.h"
#include "platform/RegistryText.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using namespace std::string_literals;

const std::string kHead = std::string(kRegistryHeader) + "\r\n\r\n";
const std::string kA = "HKEY_CURRENT_USER\\A";

RegistryText Loaded(const std::string& contents) {
  RegistryText text;
  const auto fault = text.Load(contents);
  EXPECT_FALSE(fault) << contents << '\n' << fault->line << ": " << fault->reason;
  EXPECT_EQ(text.Contents(), contents);
  return text;
}

std::string ValueIn(const std::string& contents, std::string_view name) {
  const RegistryText text = Loaded(contents);
  return std::string(text.Find(kA, name).value_or("<none>"));
}

TEST(RegistryText, FindsValues) {
  const struct {
    const char *lines, *name, *wanted;
  } cases[] = {
      {"[HKEY_CURRENT_USER\\A]\r\n\"v\"=\"1\"\r\n", "V", "\"1\""},
      {"[hkey_current_user\\a]\n@=dword:1", "", "dword:1"},
      {"  [HKEY_CURRENT_USER\\A]  ; note\n \"v\" = \"1\" ; note\n", "v", "\"1\""},
      {"[HKEY_CURRENT_USER\\A]\n\"a=\\\"b\\\\\"=\"1\"\n", "a=\"b\\", "\"1\""},
      {"[HKEY_CURRENT_USER\\A]\n\"v\"=\"two\nlines\"\n", "v", "\"two\nlines\""},
      {"[HKEY_CURRENT_USER\\A]\n\"v\"=hex:01,\\\n  02\n\"w\"=\"1\"\n", "v", "hex:01,\\\n  02"},
      {"[HKEY_CURRENT_USER\\A]\n\"v\"=hex:01,\\\n  02\n\"w\"=\"1\"\n", "w", "\"1\""},
      {"[HKEY_CURRENT_USER\\A]\n\"v\"=qword(b):what ever\n", "v", "qword(b):what ever"},
      {"[HKEY_CURRENT_USER\\A]\n;\"v\"=\"1\"\n", "v", "<none>"},
      {"[HKEY_CURRENT_USER\\A\\B]\n\"v\"=\"1\"\n", "v", "<none>"},

      // What comes later counts.
      {"[HKEY_CURRENT_USER\\A]\n\"v\"=\"1\"\n\"V\"=\"2\"\n", "v", "\"2\""},
      {"[HKEY_CURRENT_USER\\A]\n\"v\"=\"1\"\n[HKEY_USERS]\n[HKEY_CURRENT_USER\\A]\n\"V\"=\"2\"\n", "v",
       "\"2\""},
      {"[HKEY_CURRENT_USER\\A]\n\"v\"=\"1\"\n\"v\"=-\n", "v", "<none>"},
      {"[HKEY_CURRENT_USER\\A]\n\"v\"=\"1\"\n[-HKEY_CURRENT_USER\\A]\n", "v", "<none>"},
      {"[HKEY_CURRENT_USER\\A]\n\"v\"=\"1\"\n[-HKEY_CURRENT_USER]\n", "v", "<none>"},
      {"[-HKEY_CURRENT_USER\\A]\n[HKEY_CURRENT_USER\\A]\n\"v\"=\"1\"\n", "v", "\"1\""},
  };
  for (const auto& wanted : cases)
    EXPECT_EQ(ValueIn(kHead + wanted.lines, wanted.name), wanted.wanted) << wanted.lines;
}

TEST(RegistryText, ListsKeysByNameAndValuesInTheirOrder) {
  const RegistryText text =
      Loaded(kHead +
             "[HKEY_USERS\\b\\c\\d]\n[HKEY_USERS\\B\\a]\n\"z\"=\"1\"\n\"y\"=\"1\"\n@=\"1\"\n"
             "\"Z\"=\"2\"\n\"y\"=-\n[HKEY_USERS\\Bc]\n[HKEY_USERS\\gone]\n[-HKEY_USERS\\gone]\n");
  EXPECT_THAT(text.SubKeys("HKEY_USERS"), ElementsAre("b", "Bc"));
  EXPECT_THAT(text.SubKeys("hkey_users\\B"), ElementsAre("a", "c"));
  EXPECT_THAT(text.Values("HKEY_USERS\\B\\a"), ElementsAre("", "Z"));
  EXPECT_THAT(text.Values("HKEY_USERS\\B"), IsEmpty());
  EXPECT_TRUE(text.HasKey("HKEY_USERS\\b"));
  EXPECT_FALSE(text.HasKey("HKEY_USERS\\gone"));
}

TEST(RegistryText, AChangeTouchesOneLine) {
  constexpr const char* kTwo =
      "; head\r\n[HKEY_CURRENT_USER\\A]\r\n\"v\" = \"1\" ; one\r\n\"odd\"=str:x\r\n; "
      "tail\r\n\r\n[HKEY_USERS\\B]\r\n";
  const struct {
    const char *before, *name, *value, *after;  // without a value: removed
  } cases[] = {
      {kTwo, "V", "dword:2",
       "; head\r\n[HKEY_CURRENT_USER\\A]\r\n\"v\" = dword:2 ; one\r\n\"odd\"=str:x\r\n; "
       "tail\r\n\r\n[HKEY_USERS\\B]\r\n"},
      {kTwo, "n\"", "\"2\"",
       "; head\r\n[HKEY_CURRENT_USER\\A]\r\n\"v\" = \"1\" ; one\r\n\"odd\"=str:x\r\n\"n\\\"\"=\"2\"\r\n; "
       "tail\r\n\r\n"
       "[HKEY_USERS\\B]\r\n"},
      {kTwo, "v", nullptr,
       "; head\r\n[HKEY_CURRENT_USER\\A]\r\n\"odd\"=str:x\r\n; tail\r\n\r\n[HKEY_USERS\\B]\r\n"},
      {"[HKEY_CURRENT_USER\\A]", "", "\"2\"", "[HKEY_CURRENT_USER\\A]\r\n@=\"2\"\r\n"},
      {"[HKEY_CURRENT_USER\\a\\b]\r\n\"v\"=\"1\"", "v", "\"2\"",
       "[HKEY_CURRENT_USER\\a\\b]\r\n\"v\"=\"1\"\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n\"v\"=\"2\"\r\n"},
      {"", "v", "\"2\"", "[HKEY_CURRENT_USER\\A]\r\n\"v\"=\"2\"\r\n"},
      {"[HKEY_CURRENT_USER\\A]\r\n\"v\"=\"1\"\r\n\"v\"=\"2\"\r\n", "v", nullptr,
       "[HKEY_CURRENT_USER\\A]\r\n"},
      {"[HKEY_CURRENT_USER\\A]\r\n\"v\"=-\r\n", "v", "\"2\"", "[HKEY_CURRENT_USER\\A]\r\n\"v\"=\"2\"\r\n"},
      {"[HKEY_CURRENT_USER\\A]\r\n[-HKEY_CURRENT_USER\\A]\r\n", "v", "\"2\"",
       "[HKEY_CURRENT_USER\\A]\r\n[-HKEY_CURRENT_USER\\A]\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n\"v\"=\"2\"\r\n"},
  };
  for (const auto& wanted : cases) {
    RegistryText text = Loaded(kHead + wanted.before);
    if (wanted.value) {
      text.Set(kA, wanted.name, wanted.value);
    } else {
      EXPECT_TRUE(text.Remove(kA, wanted.name));
    }
    EXPECT_EQ(text.Contents(), kHead + wanted.after) << wanted.before;
    EXPECT_EQ(text.Find(kA, wanted.name).value_or("none"), wanted.value ? wanted.value : "none");
  }
}

TEST(RegistryText, KeepsTheEncodingAndTheLineBreaks) {
  RegistryText plain = Loaded("\xEF\xBB\xBF" + std::string(kRegistryHeader) + "\n");
  plain.Set(kA, "v", "\"1\"");
  EXPECT_EQ(plain.Contents(),
            "\xEF\xBB\xBF" + std::string(kRegistryHeader) + "\n\n[HKEY_CURRENT_USER\\A]\n\"v\"=\"1\"\n");
  const std::string wide = EncodeUtf16("\xEF\xBB\xBF" + kHead, TextEncoding::Utf16Le);
  RegistryText text = Loaded(wide);
  text.Set(kA, "\xC3\xA4", "\"1\"");
  EXPECT_EQ(Loaded(text.Contents()).Find(kA, "\xC3\x84"), "\"1\"");
  EXPECT_TRUE(text.Contents().starts_with("\xFF\xFEW\0"s));
}

TEST(RegistryText, RefusesWhatIsDamagedWithItsLine) {
  const struct {
    const char* text;
    size_t line;
    const char* reason;
  } cases[] = {
      {"REGEDIT4\n", 1, "\"Windows Registry Editor Version 5.00\" is missing"},
      {"H[HKEY_USERS\\A\n", 3, "the name of a key is not closed by \"]\""},
      {"H[HKEY_USERS\\A]x\n", 3, "there is more behind the name of the key"},
      {"H[HKEY_NONE\\A]\n", 3, "the key has no root such as HKEY_CURRENT_USER"},
      {"H[]\n", 3, "the key has no root such as HKEY_CURRENT_USER"},
      {"H[-]\n", 3, "the key has no root such as HKEY_CURRENT_USER"},
      {"H\"v\"=\"1\"\n", 3, "a value stands before the first key"},
      {"HK\n\nv=1\n", 6, "a line is neither a key nor a value"},
      {"HK\"v=\n", 4, "the name of a value is not closed by a quote"},
      {"HK\"v\"\n", 4, "\"=\" is missing behind the name of a value"},
      {"HK\"v\"=\"two\nlines\"\n\"w\"=\"open\n", 6, "a text is not closed by a quote"},
      {"HK\"v\"=\"1\"2\n", 4, "there is more behind the value"},
      {"HK\"v\"=hex:01,\\\n  0g\n", 4, "the value has none of the known forms"},
      {"HK\"v\"=dword:123456789\n", 4, "the value has none of the known forms"},
      {"HK\"v\"=hex:01,\\\n", 4, "the end of a value is missing"},
      {"HK\"v\"=\n", 4, "the value has none of the known forms"},
  };
  RegistryText half;
  EXPECT_EQ(half.Load(EncodeUtf16("\xEF\xBB\xBF" + kHead, TextEncoding::Utf16Le) + "\n")->line, 3u);
  for (const auto& wanted : cases) {
    std::string contents = wanted.text;
    if (contents.starts_with("HK")) contents.replace(1, 1, "[HKEY_USERS]\r\n");
    if (contents.starts_with('H')) contents.replace(0, 1, kHead);
    RegistryText text;
    const auto fault = text.Load(contents);
    ASSERT_TRUE(fault) << wanted.text;
    EXPECT_EQ(fault->line, wanted.line) << wanted.text;
    EXPECT_EQ(fault->reason, wanted.reason) << wanted.text;
  }
}

TEST(RegistryFormat, ValuesHaveTheFormOfTheEditors) {
  using enum RegistryType;
  const struct {
    RegistryValue value;
    const char* text;
  } cases[] = {
      {{String, "a\"b\\c \xC3\xA4"}, "\"a\\\"b\\\\c \xC3\xA4\""},
      {{String, ""}, "\"\""},
      {{String, "a\nb"}, "hex(1):61,00,0a,00,62,00,00,00"},
      {{ExpandString, "%P%"}, "hex(2):25,00,50,00,25,00,00,00"},
      {{DWord, "\xFF\x01\0\0"s}, "dword:000001ff"},
      {{DWord, "\x01"}, "hex(4):01"},
      {{Binary, "\x01\xFE"}, "hex:01,fe"},
      {{Binary, ""}, "hex:"},
      {{MultiString, "a\0\0\0"s}, "hex(7):61,00,00,00"},
      {{None, "\x01"}, "hex(0):01"},
      {{static_cast<RegistryType>(0xFFFF0012), "\x01"}, "hex(ffff0012):01"},
  };
  for (const auto& wanted : cases) {
    EXPECT_EQ(EncodeRegistryValue(wanted.value), wanted.text);
    EXPECT_EQ(DecodeRegistryValue(wanted.text), wanted.value) << wanted.text;
  }
  // Other spellings.
  EXPECT_EQ(DecodeRegistryValue("DWORD:1"), (RegistryValue{DWord, "\x01\0\0\0"s}));
  EXPECT_EQ(DecodeRegistryValue("hex: 1 ,\\\r\n  FE,"), (RegistryValue{Binary, "\x01\xFE"}));
  EXPECT_EQ(DecodeRegistryValue("\"a\\nb\""), (RegistryValue{String, "a\nb"}));
  EXPECT_EQ(DecodeRegistryValue("hex(1):61,00"), (RegistryValue{String, "a"}));
}

}  // namespace
