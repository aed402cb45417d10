#include "gtest/gtest.h"

#include "base/Text.h"
#include "base/Wildcard.h"

namespace {

struct Case {
  std::string_view mask;
  StringList matches, misses;
};

TEST(Wildcard, FollowsTheDosRules) {
  // clang-format off
  const Case cases[] = {
      // Everything, and names without an extension.
      {"*", {"", "a.b"}, {}},
      {"*.*", {"README", ".hidden"}, {}},
      {"*.", {"README"}, {"a.b", ".hidden", "."}},
      {"re*.", {"README"}, {"re.md"}},
      {"read??.", {"README", "READ"}, {"READ.ME"}},
      // A dot before a wildcard also matches the end of the name.
      {"name.*", {"name", "name.txt"}, {"names"}},
      {"name.?", {"name", "name.c"}, {"name.cc"}},
      {"*.?", {"Makefile"}, {}},
      {"a*.*", {"abc"}, {}},
      // '*' before a dot reaches the last dot at most, but may pass earlier ones.
      {"*.txt", {"a.TXT", "a.b.txt", ".txt"}, {"txt", "a.txt.bak"}},
      {"*.tar.gz", {"x.y.tar.gz"}, {}},
      {"*.b", {}, {"a.b.c"}},
      {"*.b*", {"a.b.c"}, {}},
      {"*a*.", {"a.ab"}, {"a.b"}},
      // '?' is one character, or none before a dot and at the end, and never the dot itself.
      {"?", {"a"}, {"ab"}},
      {"a??", {"a", "abc"}, {"abcd"}},
      {"a?c", {"abc"}, {"ac", "a.c"}},
      {"????.txt", {"ab.txt"}, {"abcde.txt"}},
      {"?.txt", {".txt"}, {}},
      {"*?.txt", {"a.txt"}, {}},
      {"a?*", {"a"}, {}},
      // Falling back.
      {"*ab*b", {"aababb"}, {}},
      {"*ab*c", {}, {"aababb"}},
      {"*?b.c", {"aab.c"}, {}},
      {"a*b?c", {"abxbyc"}, {}},
      // Letter case and characters beyond ASCII.
      {"GR\xC3\x9C*.txt", {"gr\xC3\xBC\xC3\x9F.TXT"}, {}},
      {"?.txt", {"\xE2\x82\xAC.txt"}, {}},
      {"*s.txt", {"\xC5\xBF.txt"}, {}},
      {"?.txt", {"\xFF.txt"}, {}},
      {"\xFF*", {"\xFF.txt"}, {"\xFE.txt"}},
      {"name", {"NAME"}, {"name."}},
  };
  // clang-format on
  for (const Case& c : cases) {
    for (const std::string& name : c.matches)
      EXPECT_TRUE(MatchesDosMask(name, c.mask)) << c.mask << ' ' << name;
    for (const std::string& name : c.misses)
      EXPECT_FALSE(MatchesDosMask(name, c.mask)) << c.mask << ' ' << name;
  }
}

TEST(Wildcard, ManyStarsDoNotMultiplyTheWork) {
  std::string mask;
  for (int i = 0; i < 40; ++i) mask += "*a";
  EXPECT_FALSE(MatchesDosMask(std::string(250, 'a') + "b", mask));
}

}  // namespace
