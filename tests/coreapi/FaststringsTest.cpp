#include "gtest/gtest.h"

#include "coreapi/Faststrings.h"

namespace {

constexpr auto kAll = TReplaceFlag::rfReplaceAll;
constexpr auto kAnyCase = TReplaceFlag::rfIgnoreCase;

TEST(FastAnsiReplace, ReplacesByItsFlags) {
  const struct {
    const char *text, *oldText, *newText;
    TReplaceFlags flags;
    const char* result;
  } cases[] = {
      {"a-b-c", "-", "+", {}, "a+b-c"},
      {"a-b-c", "-", "+", {kAll}, "a+b+c"},
      {"aaaa", "aa", "b", {kAll}, "bb"},
      {"x", "x", "xx", {kAll}, "xx"},
      {"abc", "ABC", "", {kAll}, "abc"},
      {"abcABC", "aBc", "-", {kAll, kAnyCase}, "--"},
      {"abcABC", "aBc", "-", {kAnyCase}, "-ABC"},
      {"\xC3\x84x\xC3\xA4", "\xC3\xA4", "ae", {kAll, kAnyCase}, "aexae"},
      {"\xFF_\xFF", "\xFF", "?", {kAll, kAnyCase}, "?_?"},
      {"ab", "abc", "-", {kAll, kAnyCase}, "ab"},
      {"abc", "", "-", {kAll}, "abc"},
      {"", "a", "-", {kAll, kAnyCase}, ""},
  };
  for (const auto& wanted : cases) {
    EXPECT_EQ(FastAnsiReplace(wanted.text, wanted.oldText, wanted.newText, wanted.flags), wanted.result)
        << wanted.text << " / " << wanted.oldText;
  }
}

}  // namespace
