#include <algorithm>

#include "gtest/gtest.h"

#include "base/Text.h"

namespace {

TEST(Text, TrimTakesBlanksAndControlCharacters) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"", ""},
      {" \t\r\n", ""},
      {" a b ", "a b"},
      {std::string_view("\0\x1F x", 4), "x"},
      {"\xC2\xA0x", "\xC2\xA0x"},  // a no-break space is text
  };
  for (const auto& [text, wanted] : cases) EXPECT_EQ(Trim(text), wanted) << text;
}

TEST(Text, UpCaseKnowsUnicodeAndPassesOtherBytesThrough) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"aZ09_", "AZ09_"},
      {"gr\xC3\xBC\xC3\x9F", "GR\xC3\x9C\xC3\x9F"},  // sharp s has no single upper-case letter
      {"\xC3\xBF\xD0\xB6", "\xC5\xB8\xD0\x96"},
      {"\xF0\x90\x90\xA8", "\xF0\x90\x90\x80"},
      {"a\xFF\xC3", "A\xFF\xC3"},
      {"\xED\xA0\x80", "\xED\xA0\x80"},  // a surrogate is no character
      {"\xC0\xAF", "\xC0\xAF"},          // neither is an overlong form
  };
  for (const auto& [text, wanted] : cases) EXPECT_EQ(UpCase(text), wanted) << text;
}

TEST(Text, SameTextComparesWithoutCase) {
  EXPECT_TRUE(SameText("\xC3\x84rger", "\xC3\xA4RGER"));
  EXPECT_FALSE(SameText("abc", "abcd"));
  EXPECT_FALSE(SameText("\xFF", "\xFE"));
  EXPECT_TRUE(SameText("", ""));
}

TEST(Text, LessNoCaseOrdersByUpperCasedText) {
  StringList names = {"b", "\xC3\xA4", "_", "C", "a.txt", "A", "ab", "\xFF"};
  std::sort(names.begin(), names.end(), LessNoCase());
  EXPECT_EQ(names, (StringList{"A", "a.txt", "ab", "b", "C", "_", "\xC3\xA4", "\xFF"}));
}

TEST(Text, SplitLinesKnowsEveryLineBreak) {
  const std::pair<std::string_view, StringList> cases[] = {
      {"", {}},         {"a", {"a"}},       {"a\nb\r\nc\rd", {"a", "b", "c", "d"}},
      {"a\r\n", {"a"}}, {"\n\n", {"", ""}}, {"a\n\rb", {"a", "", "b"}},
  };
  for (const auto& [text, wanted] : cases) EXPECT_EQ(SplitLines(text), wanted) << text;
}

TEST(Text, CountsCharacters) {
  const std::string ascii(200, 'a');
  EXPECT_EQ(CharacterCount(ascii), 200u);
  EXPECT_TRUE(IsAscii(ascii));
  for (const size_t place : {0, 62, 63, 64, 199, 200}) {
    const std::string text = std::string(ascii).insert(place, "\xE2\x82\xAC\xE2\x82");
    EXPECT_EQ(CharacterCount(text), 203u) << place;
    EXPECT_FALSE(IsAscii(text));
  }
}

TEST(Text, Utf8EndsWithTheLastCodePoint) {
  EXPECT_TRUE(IsUtf8("\xF4\x8F\xBF\xBF"));
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
}

TEST(Text, CodePointsSurviveDecodingAndEncoding) {
  for (const char32_t c : {U'\0', U'\x7F', U'\x80', U'\x7FF', U'\x800', U'\xFFFF', U'\x10000', U'\x10FFFF'}) {
    std::string text;
    AppendUtf8(text, c);
    size_t position = 0;
    EXPECT_EQ(NextCodePoint(text, position), c);
    EXPECT_EQ(position, text.size());
  }
}

TEST(Text, ReplaceAllGoesLeftToRight) {
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(ReplaceAll("a.b.", ".", ".."), "a..b..");
  EXPECT_EQ(ReplaceAll("abc", "x", "y"), "abc");
}

}  // namespace
