#include "gtest/gtest.h"

#include "host/log/ProgressLine.h"

namespace {

TEST(ProgressLine, FitsItsWidth) {
  const struct {
    int width;
    std::string_view text;
    int32_t percent;
    std::string_view wanted;
  } kCases[] = {
      {51, "Copying a", 52, "\rCopying a              [##########----------]  52%"},
      {51, "Copying a\nto b\x1b", 100, "\rCopying a to b\\x1B     [####################] 100%"},
      {51, "Copying C:\\source\\file.txt", -5, "\rCopying C...\\file.txt  [--------------------]   0%"},
      {40, "Copying a", 7, "\rCopying a                            7%"},  // too narrow for a bar
      {8, "Copying a", 999, "\r.. 100%"},
      {5, "Copying a", 50, ""},
      {0, "Copying a", 50, ""},
  };
  for (const auto& [width, text, percent, wanted] : kCases) {
    EXPECT_EQ(ProgressLine(width).Draw(text, percent), wanted) << width;
  }
  EXPECT_EQ(ProgressLine(300).Draw("Copying a", 0).size(), 101u);
}

TEST(ProgressLine, IsDrawnAgainOnlyWhenItLooksDifferent) {
  ProgressLine line(20);
  EXPECT_EQ(line.Erase(), "");
  EXPECT_EQ(line.Draw("Copying", 100), "\rCopying        100%");
  EXPECT_EQ(line.Draw("Copying", 101), "");
  EXPECT_EQ(line.Draw("Moving", 100), "\rMoving         100%");
  EXPECT_EQ(line.Erase(), "\r                   \r");
  EXPECT_EQ(line.Erase(), "");
  EXPECT_EQ(line.Draw("Moving", 100), "\rMoving         100%");
}

}  // namespace
