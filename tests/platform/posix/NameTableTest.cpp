#include <random>
#include <set>

#include "gtest/gtest.h"

#include "base/Text.h"
#include "platform/posix/paths/NameTable.h"

namespace {

TEST(NameTable, FindsWhatASlowTwinFinds) {
  std::mt19937 random(7);
  const auto number = [&](size_t below) { return random() % below; };
  NameTable table;
  std::multiset<std::string> twin;
  const std::string_view letters[] = {"a",        "A", "\xC3\xA4",
                                      "\xC3\x84", "x", "long enough to be no short text"};
  for (int step = 0; step < 20000; ++step) {
    std::string name;
    for (size_t i = number(4) + 1; i > 0; --i) name += letters[number(std::size(letters))];
    if (number(3) == 0) {
      table.Remove(name);
      if (const auto it = twin.find(name); it != twin.end()) twin.erase(it);
    } else if (twin.count(name) == 0) {
      table.Add(name);
      twin.insert(name);
    }
    if (step % 50 != 0) continue;
    std::multiset<std::string> found, wanted;
    table.ForEach(name, [&](std::string_view candidate) { found.emplace(candidate); });
    for (const std::string& other : twin) {
      if (SameText(other, name)) wanted.insert(other);
    }
    ASSERT_EQ(found, wanted) << name;
  }
}

}  // namespace
