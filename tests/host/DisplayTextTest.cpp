#include "gtest/gtest.h"

#include "host/log/DisplayText.h"

namespace {

std::string Shown(std::string_view text) {
  std::string shown;
  AppendDisplayText(shown, text);
  return shown;
}

TEST(DisplayText, SpellsOutWhatATerminalWouldObey) {
  const struct {
    std::string_view text, wanted;
  } kCases[] = {
      {"plain ~ text\tkept", "plain ~ text\tkept"},
      {"gr\u00FCn \U0001F600", "gr\u00FCn \U0001F600"},
      {"\x1b[31mred\x07", "\\x1B[31mred\\x07"},
      {std::string_view("a\0b\x7F", 4), "a\\x00b\\x7F"},
      {"\u009B2J", "\\x9B2J"},                // the one-character form of ESC [
      {"a\u202Egpj.exe", "a\\u202Egpj.exe"},  // reverses what follows
      {"\u061C\uFEFF", "\\u061C\\uFEFF"},
      {"\x9B\xFFz\xE2\x82", "\uFFFD\uFFFDz\uFFFD\uFFFD"},
  };
  for (const auto& [text, wanted] : kCases) EXPECT_EQ(Shown(text), wanted);
}

TEST(DisplayText, ALineHasNoBreaksAndNoTabs) {
  EXPECT_EQ(DisplayLine("a\r\nb\rc\nd\te\x1b\n"), "a b c d e\\x1B");
}

TEST(DisplayText, FitsToColumns) {
  const struct {
    std::string_view line;
    size_t columns;
    std::string_view wanted;
  } kCases[] = {
      {"abc", 5, "abc  "},
      {"abcdefghij", 10, "abcdefghij"},
      {"abcdefghijk", 10, "abcd...ijk"},
      {"abcdefghij", 3, "..."},
      {"abcdefghij", 2, ".."},
      {"abcdefghij", 0, ""},
      {"\u00E4\u00F6\u00FC", 4, "\u00E4\u00F6\u00FC "},
      {"e\u0301e\u0301", 3, "e\u0301e\u0301 "},         // accents that combine
      {"\u65E5\u672C\u8A9E", 6, "\u65E5\u672C\u8A9E"},  // two columns each
      {"\u65E5\u672C\u8A9E\u65E5", 7, "\u65E5...\u65E5"},
      {"\u65E5\u672C\u8A9E\u65E5", 6, "\u65E5... "},
  };
  for (const auto& [line, columns, wanted] : kCases) EXPECT_EQ(FitColumns(line, columns), wanted);
}

TEST(DisplayText, WrapsAtBlanks) {
  const struct {
    std::string_view line;
    size_t columns;
    std::string_view wanted;
  } kCases[] = {
      {"", 4, ""},
      {"ab cd", 5, "ab cd"},
      {"ab cd", 4, "ab|cd"},
      {"abcd ef", 4, "abcd|ef"},  // the blank itself need not fit
      {"abcdefg hi", 4, "abcd|efg|hi"},
      {"  indented", 6, "  inde|nted"},
      {"\u65E5\u672C \u8A9E\u65E5\u672C", 5, "\u65E5\u672C|\u8A9E\u65E5|\u672C"},
      {"\u65E5\u672C", 0, "\u65E5|\u672C"},  // a window narrower than a character
  };
  for (const auto& [line, columns, wanted] : kCases)
    EXPECT_EQ(JoinLines(WrapColumns(line, columns), "|"), wanted) << line;
}

TEST(DisplayText, ElapsedTimesReadWell) {
  const struct {
    double seconds;
    std::string_view wanted;
  } kCases[] = {
      {0, "0.00 s"},           {0.034, "0.03 s"},           {9.994, "9.99 s"},           {9.996, "10.0 s"},
      {12.44, "12.4 s"},       {59.94, "59.9 s"},           {59.96, "1 min 00 s"},       {185, "3 min 05 s"},
      {3599.4, "59 min 59 s"}, {3599.6, "1 h 00 min 00 s"}, {90061, "25 h 01 min 01 s"}, {-3, "0.00 s"},
  };
  for (const auto& [seconds, wanted] : kCases) EXPECT_EQ(ElapsedText(seconds), wanted) << seconds;
}

}  // namespace
