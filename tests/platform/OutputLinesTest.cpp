#include "gtest/gtest.h"

#include "base/Text.h"
#include "platform/OutputLines.h"

namespace {

/// What comes out when the text arrives in parts of that size.
StringList LinesOf(std::string_view text, size_t partSize) {
  OutputLines lines;
  StringList result;
  const auto add = [&](std::string_view line) { result.emplace_back(line); };
  for (; !text.empty(); text.remove_prefix(std::min(partSize, text.size()))) {
    const std::string_view part = text.substr(0, partSize);
    std::copy(part.begin(), part.end(), lines.Room());
    lines.Take(part.size(), add);
  }
  lines.Finish(add);
  return result;
}

TEST(OutputLines, EndInLineFeedsWithOrWithoutCarriageReturn) {
  const std::pair<std::string, StringList> cases[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\n", {"a"}},
      {"a\r\nb\nc", {"a", "b", "c"}},
      {"\n\r\n\n", {"", "", ""}},
      {"1%\r2%\r\nx\r", {"1%\r2%", "x\r"}},
      {std::string("a\0b\n\xFF\n", 6), {std::string("a\0b", 3), "\xFF"}},
  };
  for (const auto& [text, wanted] : cases) {
    for (const size_t partSize : {1, 2, 3, 100}) EXPECT_EQ(LinesOf(text, partSize), wanted) << text;
  }
}

TEST(OutputLines, ManyLinesPassThroughWhole) {
  std::string text;
  StringList wanted;
  for (size_t i = 0; i < 20'000; ++i) {
    wanted.push_back(std::to_string(i) + std::string(i % 997, 'x'));
    text += wanted.back() + '\n';
  }
  EXPECT_EQ(LinesOf(text, OutputLines::kReadSize), wanted);
  EXPECT_EQ(LinesOf(text, 4999), wanted);
}

TEST(OutputLines, ALineWithoutEndComesInPiecesOfWholeCharacters) {
  constexpr size_t kLongest = OutputLines::kLongestPiece;
  const std::string runaway(3 * kLongest, 'x');
  for (const std::string& piece : LinesOf(runaway, 60'000)) EXPECT_LE(piece.size(), kLongest);

  const std::string character = "\xE2\x82\xAC";
  const std::string start(kLongest - 2, 'x');
  const StringList pieces = LinesOf(start + character + "yyy", 60'000);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_TRUE(pieces[0] == start) << pieces[0].size();
  EXPECT_EQ(pieces[1], character + "yyy");
}

}  // namespace
