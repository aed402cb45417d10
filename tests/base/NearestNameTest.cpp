#include "gtest/gtest.h"

#include "base/NearestName.h"

namespace {

TEST(NearestName, FindsSlipsOfTheFinger) {
  constexpr std::string_view kNames[] = {"FileSpec", "DeleteReadOnly", "DeleteHidden", "Recurse"};
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"filespec", "FileSpec"},
      {"FileSpce", "FileSpec"},
      {"FilSpec", "FileSpec"},
      {"DeleteReadonyl", "DeleteReadOnly"},
      {"Recurses", "Recurse"},
      {"Timeout", ""},
      {"", ""},
      {"x", ""},
  };
  for (const auto& [name, wanted] : cases) EXPECT_EQ(NearestName(name, kNames), wanted) << name;
  EXPECT_EQ(DidYouMean("recursed", kNames), "; did you mean \"Recurse\"?");
  EXPECT_EQ(DidYouMean("Timeout", kNames), "");
}

}  // namespace
