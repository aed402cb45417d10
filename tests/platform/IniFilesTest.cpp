#include "gmock/gmock.h"

#include "platform/IniFiles.h"
#include "platform/PlatformTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* kNone = "<none>";  // no such value

class IniFilesTest : public PlatformTest {
 protected:
  std::string ValueOf(std::string_view section, std::string_view key) {
    std::optional<std::string> value;
    EXPECT_TRUE(ini.Read(Path("f.ini"), section, key, value));
    return value.value_or(kNone);
  }

  std::vector<std::string> EntriesOf(std::string_view section) {
    std::vector<IniEntry> entries;
    EXPECT_TRUE(ini.ReadEntries(Path("f.ini"), section, entries));
    std::vector<std::string> lines;
    for (const IniEntry& entry : entries) lines.push_back(entry.name + '|' + entry.value);
    return lines;
  }

  std::string Written(std::string_view before, std::string_view section, std::string_view key,
                      std::string_view value) {
    folder.Write("f.ini", before);
    EXPECT_TRUE(ini.Write(Path("f.ini"), section, key, value));
    return folder.Read("f.ini");
  }

  IniFiles& ini = *owner->Get().iniFiles;
};

TEST_F(IniFilesTest, FindsTheValueOfAKey) {
  const struct {
    const char *text, *section, *key, *wanted;
  } cases[] = {
      {"[S]\na=1\nb=2\n", "S", "b", "2"},
      {"[S]\r\na=1\r\nb=2", "s", "B", "2"},
      {"[S]\ra=1\rb=2", "S", "b", "2"},  // a lone CR ends a line as well
      {"[ S ]\n  a  =  1  \n", "S", "a", "1"},
      {"[S]\na=1\n", " S ", " a ", "1"},
      {"[S]\na=1\n", "S", "b", kNone},
      {"[S]\na=1\n", "T", "a", kNone},
      {"a=1\n[S]\n", "S", "a", kNone},  // before the first section
      {"", "S", "a", kNone},

      // The first counts.
      {"[S]\na=1\nA=2\n", "S", "a", "1"},
      {"[S]\na=1\n[T]\n[s]\na=2\nb=3\n", "S", "a", "1"},
      {"[S]\na=1\n[T]\n[s]\na=2\nb=3\n", "S", "b", kNone},
      {"[S]\na\na=2\n", "S", "a", kNone},  // a bare name is a key without a value

      // Quotes: one matching pair, with the blanks inside.
      {"[S]\na=\" x \"\n", "S", "a", " x "},
      {"[S]\na= ' x '  \n", "S", "a", " x "},
      {"[S]\na=\"x'\n", "S", "a", "\"x'"},
      {"[S]\na=\"\n", "S", "a", "\""},
      {"[S]\na=\"\"\n", "S", "a", ""},
      {"[S]\na=\"\"x\"\"\n", "S", "a", "\"x\""},
      {"[S]\na=\"b\" \"c\"\n", "S", "a", "b\" \"c"},

      // What a value may hold, and what is none.
      {"[S]\na=\n", "S", "a", ""},
      {"[S]\na=b=c\n", "S", "a", "b=c"},
      {"[S]\na=x ; y # z\n", "S", "a", "x ; y # z"},
      {"[S]\n;a=1\n# a=2\n", "S", "a", kNone},
      {"[S]\n;a=1\n# a=2\n", "S", "# a", "2"},  // only ";" begins a comment
      {"[S]\na=1\x1A\n", "S", "a", "1"},        // the end mark of old editors

      // Headers.
      {"[S] ; note\na=1\n", "S", "a", "1"},
      {"  [S]\na=1\n", "S", "a", "1"},
      {"[S]T]\na=1\n", "S]T", "a", "1"},
      {"[S]\n[T\na=1\n", "S", "a", "1"},  // no header: the bracket does not close

      // Encodings.
      {"[S]\na=\xC3\xA4\xF0\x9F\x98\x80\n", "S", "a", "\xC3\xA4\xF0\x9F\x98\x80"},
      {"\xEF\xBB\xBF[S]\na=\xC3\xA4\n", "S", "a", "\xC3\xA4"},
  };
  for (const auto& wanted : cases) {
    folder.Write("f.ini", wanted.text);
    EXPECT_EQ(ValueOf(wanted.section, wanted.key), wanted.wanted) << wanted.text << wanted.key;
  }
}

TEST_F(IniFilesTest, LettersBeyondAsciiHaveACaseToo) {
  if (WineLimits::AsciiCaseInIniFiles()) GTEST_SKIP() << "compares only ASCII letters without case";
  folder.Write("f.ini", "[\xC3\x84]\n\xCF\x83=1\n");
  EXPECT_EQ(ValueOf("\xC3\xA4", "\xCE\xA3"), "1");
}

TEST_F(IniFilesTest, ReadsUtf16WithAMark) {
  using namespace std::string_literals;
  folder.Write("f.ini", "\xFF\xFE[\0S\0]\0\n\0a\0=\0\xE4\0=\xD8\0\xDE\n\0"s);
  EXPECT_EQ(ValueOf("S", "a"), "\xC3\xA4\xF0\x9F\x98\x80");
  folder.Write("f.ini", "\xFE\xFF\0[\0S\0]\0\n\0a\0=\0\xE4"s);
  EXPECT_EQ(ValueOf("S", "a"), "\xC3\xA4");
}

TEST_F(IniFilesTest, ListsSectionsAndEntries) {
  folder.Write("f.ini", "x=0\n[S]\na=\" 1 \"\n;c=2\nbare\nA=3\n=4\n\n[T]\n[s]\nb=5\n");
  StringList names;
  EXPECT_TRUE(ini.ReadSections(Path("f.ini"), names));
  EXPECT_THAT(names, ElementsAre("S", "T", "s"));
  EXPECT_THAT(EntriesOf(" s"), ElementsAre("a| 1 ", "A|3", "|4"));
  EXPECT_THAT(EntriesOf("T"), IsEmpty());
  EXPECT_THAT(EntriesOf("U"), IsEmpty());
}

TEST_F(IniFilesTest, LongValuesAndSectionsComeWhole) {
  const std::string longValue(70000, 'v');
  std::string text = "[S]\nlong=" + longValue + "\n";
  for (int i = 0; i < 3000; ++i) text += "key" + std::to_string(i) + "=" + std::to_string(i) + "\n";
  for (int i = 0; i < 3000; ++i) text += "[Section" + std::to_string(i) + "]\n";
  folder.Write("f.ini", text);
  EXPECT_EQ(ValueOf("S", "long"), longValue);
  EXPECT_EQ(ValueOf("S", "key2999"), "2999");
  EXPECT_EQ(EntriesOf("S").size(), 3001u);
  StringList names;
  EXPECT_TRUE(ini.ReadSections(Path("f.ini"), names));
  EXPECT_EQ(names.size(), 3001u);
}

TEST_F(IniFilesTest, AWriteChangesOneLine) {
  constexpr const char* kMixed = "; head\n\n[ S ] ;s\n\n  a  =  1  \nbare\n#x\n\n;tail\n\n[T]\nb=2";
  const struct {
    const char *before, *section, *key, *value, *after;
  } cases[] = {
      // An existing key: what stands before the value stays.
      {"[S]\na=1\nb=2\n", "S", "a", "longer", "[S]\na=longer\nb=2\n"},
      {"[S]\r\na=long\r\nb=2", "s", "A", "", "[S]\r\na=\r\nb=2"},
      {"[S]\na=1\nb=2", "S", "b", "3", "[S]\na=1\nb=3"},
      {kMixed, "S", "a", "9", "; head\n\n[ S ] ;s\n\n  a  =  9\nbare\n#x\n\n;tail\n\n[T]\nb=2"},
      {kMixed, "S", "bare", "9", "; head\n\n[ S ] ;s\n\n  a  =  1  \nbare=9\n#x\n\n;tail\n\n[T]\nb=2"},
      {"[S]\na=1\na=2\n[S]\na=3\n", "S", "a", "9", "[S]\na=9\na=2\n[S]\na=3\n"},

      // A new key: after the last line of its section.
      {kMixed, "S", "n", "9", "; head\n\n[ S ] ;s\n\n  a  =  1  \nbare\n#x\n\n;tail\nn=9\n\n[T]\nb=2"},
      {kMixed, "T", "n", "9", "; head\n\n[ S ] ;s\n\n  a  =  1  \nbare\n#x\n\n;tail\n\n[T]\nb=2\nn=9\n"},
      {"[S]\r\n[T]\r\n", "S", " n ", "9", "[S]\r\nn=9\r\n[T]\r\n"},
      {"[S]\ra=1\r", "S", "n", "9", "[S]\ra=1\rn=9\r"},
      {"[S]", "S", "n", "9", "[S]\r\nn=9\r\n"},
      {"[S]\n[T]\n[S]\n", "S", "n", "9", "[S]\nn=9\n[T]\n[S]\n"},

      // A new section: at the end.
      {"", " U ", "n", "9", "[U]\r\nn=9\r\n"},
      {kMixed, "U", "n", "9", "; head\n\n[ S ] ;s\n\n  a  =  1  \nbare\n#x\n\n;tail\n\n[T]\nb=2\n[U]\nn=9\n"},
      {"n=1\n", "U", "n", "9", "n=1\n[U]\nn=9\n"},

      // The value goes as it stands.
      {"[S]\na=1\n", "S", "a", " \"x\" ", "[S]\na= \"x\" \n"},
      {"[S]\na=1\n", "S", "a", "x\ny=2", "[S]\na=x\ny=2\n"},

      // Bytes that are no text, and marks.
      {"[S]\na=1\nb=\xFF\n;\xE4\n", "S", "a", "\xC3\xA4", "[S]\na=\xC3\xA4\nb=\xFF\n;\xE4\n"},
      {"\xEF\xBB\xBF[S]\na=1\n", "S", "a", "2", "\xEF\xBB\xBF[S]\na=2\n"},
      {"\xEF\xBB\xBF", "S", "a", "2", "\xEF\xBB\xBF[S]\r\na=2\r\n"},
  };
  for (const auto& wanted : cases) {
    EXPECT_EQ(Written(wanted.before, wanted.section, wanted.key, wanted.value), wanted.after)
        << wanted.before;
  }
}

TEST_F(IniFilesTest, EntriesAreWrittenTogether) {
  const std::vector<IniEntry> entries{{"b", "9"}, {"n", "1"}, {"N", "2"}};
  const struct {
    const char* before;
    OtherLines others;
    const char* after;
  } cases[] = {
      {"[S]\na=1\nb=2\n[T]\nb=3\n", OtherLines::Keep, "[S]\na=1\nb=9\nn=2\n[T]\nb=3\n"},
      {"[S]\na=1\nb=2\n[T]\nb=3\n", OtherLines::Remove, "[T]\nb=3\n[S]\nb=9\nn=2\n"},
      {"[T]\n", OtherLines::Remove, "[T]\n[S]\nb=9\nn=2\n"},
  };
  for (const auto& wanted : cases) {
    folder.Write("f.ini", wanted.before);
    EXPECT_TRUE(ini.WriteEntries(Path("f.ini"), "S", entries, wanted.others));
    EXPECT_EQ(folder.Read("f.ini"), wanted.after);
  }
  EXPECT_TRUE(ini.WriteEntries(Path("f.ini"), "S", {}, OtherLines::Remove));
  EXPECT_EQ(folder.Read("f.ini"), "[T]\n");
  EXPECT_TRUE(ini.WriteEntries(Path("none.ini"), "S", {}, OtherLines::Remove));
  EXPECT_FALSE(folder.Exists("none.ini"));
}

TEST_F(IniFilesTest, Utf16StaysUtf16) {
  using namespace std::string_literals;
  const std::string half = "\xFF\xFE[\0S\0]\0\n\0x\0=\0\0\xD8\n\0"s;  // x is half a pair
  EXPECT_EQ(Written(half, "S", "y", "\xC3\xA4\xF0\x9F\x98\x80"), half + "y\0=\0\xE4\0=\xD8\0\xDE\n\0"s);
  EXPECT_EQ(Written("\xFE\xFF\0[\0S\0]\0\n"s, "S", "y", "1"), "\xFE\xFF\0[\0S\0]\0\n\0y\0=\0\x31\0\n"s);
  EXPECT_EQ(Written("\xFF\xFE[\0S\0]\0\n\0z"s, "S", "y", "1"), "\xFF\xFE[\0S\0]\0\n\0y\0=\0\x31\0\n\0z"s);
}

TEST_F(IniFilesTest, ManyWritesInARowAreAllThere) {
  folder.Write("f.ini", "[A]\nlast=0\n\n[B]\nb=0\n");
  const std::string values[] = {"1", "a longer one", "", "x"};
  for (int i = 0; i < 40; ++i) {
    EXPECT_TRUE(ini.Write(Path("f.ini"), "A", "k" + std::to_string(i % 10), values[i % 4]));
    EXPECT_TRUE(ini.Write(Path("f.ini"), "B", "b", values[i % 3]));
    EXPECT_EQ(ValueOf("A", "k" + std::to_string(i % 10)), values[i % 4]);
    EXPECT_EQ(ValueOf("B", "b"), values[i % 3]);
  }
  EXPECT_EQ(folder.Read("f.ini"),
            "[A]\nlast=0\nk0=\nk1=x\nk2=1\nk3=a longer one\nk4=\nk5=x\nk6=1\nk7=a longer one\nk8=\nk9=x\n"
            "\n[B]\nb=1\n");
}

TEST_F(IniFilesTest, DeletesKeysAndSections) {
  constexpr const char* kText = "[S]\n\n;c\na=1\na=2\n\n[T]\nb=2\n[S]\na=5\n";
  folder.Write("f.ini", kText);
  EXPECT_TRUE(ini.Delete(Path("f.ini"), "S", "none"));
  EXPECT_TRUE(ini.DeleteSection(Path("f.ini"), "none"));
  EXPECT_EQ(folder.Read("f.ini"), kText);
  EXPECT_TRUE(ini.Delete(Path("f.ini"), "s", "A"));
  EXPECT_EQ(folder.Read("f.ini"), "[S]\n\n;c\na=2\n\n[T]\nb=2\n[S]\na=5\n");
  EXPECT_EQ(ValueOf("S", "a"), "2");
  EXPECT_TRUE(ini.DeleteSection(Path("f.ini"), "S"));
  EXPECT_EQ(folder.Read("f.ini"), "[T]\nb=2\n[S]\na=5\n");
  EXPECT_EQ(ValueOf("S", "a"), "5");
  EXPECT_TRUE(ini.DeleteSection(Path("f.ini"), "S"));
  EXPECT_EQ(folder.Read("f.ini"), "[T]\nb=2\n");
}

TEST_F(IniFilesTest, SeesWhatOtherProgramsDo) {
  for (int i = 0; i < 20; ++i) {
    const std::string value = std::to_string(i % 10);
    folder.Write("f.ini", "[S]\na=" + value + "\n");  // the same size each time
    EXPECT_EQ(ValueOf("S", "a"), value);
  }
  for (const char* value : {"2", "3"}) {
    EXPECT_TRUE(ini.Write(Path("f.ini"), "S", "a", "1"));
    folder.Write("f.ini",
                 "[S]\na=" + std::string(value) + "\n");  // in place, within a step of the file's clock
    EXPECT_EQ(ValueOf("S", "a"), value);
  }
  EXPECT_TRUE(data.Replace(Path("f.ini"), "[S]\na=x\n"));
  EXPECT_EQ(ValueOf("S", "a"), "x");
  EXPECT_TRUE(ini.Write(Path("f.ini"), "S", "b", "y"));
  EXPECT_TRUE(entries.Delete(Path("f.ini")));
  EXPECT_EQ(ValueOf("S", "a"), kNone);
  EXPECT_TRUE(ini.Write(Path("f.ini"), "S", "c", "z"));
  EXPECT_EQ(folder.Read("f.ini"), "[S]\r\nc=z\r\n");
}

TEST_F(IniFilesTest, MissingFilesReadAsEmptyAndAreNotMade) {
  std::optional<std::string> value = "old";
  for (const char* name : {"none.ini", "none/f.ini"}) {
    EXPECT_TRUE(ini.Read(Path(name), "S", "a", value)) << name;
    EXPECT_EQ(value, std::nullopt);
    EXPECT_TRUE(ini.Delete(Path(name), "S", "a"));
    EXPECT_TRUE(ini.DeleteSection(Path(name), "S"));
  }
  EXPECT_THAT(folder.Names(), IsEmpty());
  EXPECT_EQ(ini.Write(Path("none/f.ini"), "S", "a", "1").code, Win32Error::PathNotFound);
}

}  // namespace
