#include <string>

#include "gtest/gtest.h"

#include "base/Wildcard.h"

namespace {

struct Case {
  std::string_view mask, name;
  bool matches;
};

TEST(Wildcard, FollowsTheDosRules) {
  const Case cases[] = {
      // Everything, and names without an extension.
      {"*", "", true},
      {"*", "a.b", true},
      {"*.*", "README", true},
      {"*.*", ".hidden", true},
      {"*.", "README", true},
      {"*.", "a.b", false},
      {"*.", ".hidden", false},
      {"*.", ".", false},
      {"re*.", "README", true},
      {"re*.", "re.md", false},
      {"read??.", "README", true},
      {"read??.", "READ", true},
      {"read??.", "READ.ME", false},
      // A dot before a wildcard also matches the end of the name.
      {"name.*", "name", true},
      {"name.*", "name.txt", true},
      {"name.*", "names", false},
      {"name.?", "name", true},
      {"name.?", "name.c", true},
      {"name.?", "name.cc", false},
      {"*.?", "Makefile", true},
      {"a*.*", "abc", true},
      // '*' before a dot reaches the last dot at most, but may pass earlier ones.
      {"*.txt", "a.TXT", true},
      {"*.txt", "a.b.txt", true},
      {"*.txt", ".txt", true},
      {"*.txt", "txt", false},
      {"*.txt", "a.txt.bak", false},
      {"*.tar.gz", "x.y.tar.gz", true},
      {"*.b", "a.b.c", false},
      {"*.b*", "a.b.c", true},
      {"*a*.", "a.ab", true},
      {"*a*.", "a.b", false},
      // '?' is one character, or none before a dot and at the end, and never the dot itself.
      {"?", "a", true},
      {"?", "ab", false},
      {"a??", "a", true},
      {"a??", "abc", true},
      {"a??", "abcd", false},
      {"a?c", "abc", true},
      {"a?c", "ac", false},
      {"a?c", "a.c", false},
      {"????.txt", "ab.txt", true},
      {"????.txt", "abcde.txt", false},
      {"?.txt", ".txt", true},
      {"*?.txt", "a.txt", true},
      {"a?*", "a", true},
      // Falling back.
      {"*ab*b", "aababb", true},
      {"*ab*c", "aababb", false},
      {"*?b.c", "aab.c", true},
      {"a*b?c", "abxbyc", true},
      // Letter case and characters beyond ASCII.
      {"GR\xC3\x9C*.txt", "gr\xC3\xBC\xC3\x9F.TXT", true},
      {"?.txt", "\xE2\x82\xAC.txt", true},
      {"*s.txt", "\xC5\xBF.txt", true},
      {"?.txt", "\xFF.txt", true},
      {"\xFF*", "\xFF.txt", true},
      {"\xFF*", "\xFE.txt", false},
      {"name", "NAME", true},
      {"name", "name.", false},
  };
  for (const Case& c : cases)
    EXPECT_EQ(MatchesDosMask(c.name, c.mask), c.matches) << c.mask << " | " << c.name;
}

TEST(Wildcard, ManyStarsDoNotMultiplyTheWork) {
  std::string mask;
  for (int i = 0; i < 40; ++i) mask += "*a";
  EXPECT_FALSE(MatchesDosMask(std::string(250, 'a') + "b", mask));
}

}  // namespace
