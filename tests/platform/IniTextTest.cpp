#include "gtest/gtest.h"

#include "platform/IniText.h"

namespace {

/// All that can be asked of a text, in one.
std::string Told(const IniText& text) {
  std::string told;
  for (const std::string& section : text.Sections()) {
    told += '[' + section + "]\n";
    for (const IniEntry& entry : text.Entries(section)) {
      told +=
          entry.name + '=' + entry.value + " first " + text.Find(section, entry.name).value_or("none") + '\n';
    }
  }
  return told;
}

// What is kept up to date through a row of changes is what reading the result anew gives.
TEST(IniText, StaysTrueToItsBytes) {
  constexpr const char* kSections[] = {"S", "t", "New", "a]b", "[x"};
  constexpr const char* kKeys[] = {"a", "B", "bare", " c ", "d=e", "[f", ";g", "", "\xC3\xA4"};
  constexpr const char* kValues[] = {"1",     "",   "longer than before", " blank ",
                                     "\"q\"", "x]", "l\n[T]\nz=1",        "\r"};
  constexpr const char* kStarts[] = {
      "",
      "; head\r\n\r\n[S]\r\na=1\r\nbare\r\n\r\n[T]\r\nB = 2\r\n[s]\r\na=3",
      "\xEF\xBB\xBFx=0\n[S]\n\n  a=1\n;g=2\n",
  };
  uint32_t random = 1;
  const auto pick = [&random](const auto& from) {
    random = random * 1664525 + 1013904223;
    return from[(random >> 16) % std::size(from)];
  };
  constexpr char kChanges[] = {'w', 'w', 'w', 'w', 'w', 'w', 'w', 'w', 'd', 'e'};
  for (const std::string start : kStarts) {
    IniText text(start);
    for (int step = 0; step < 100; ++step) {
      if (text.Contents().size() > 500) text = IniText(start);
      const std::string section = pick(kSections), key = pick(kKeys);
      const char change = pick(kChanges);
      if (change == 'w') text.Set(section, key, pick(kValues));
      if (change == 'd') text.Remove(section, key);
      if (change == 'e' && step % 8 == 0) text.RemoveSection(section);
      ASSERT_EQ(Told(text), Told(IniText(text.Contents()))) << step << '\n' << text.Contents();
    }
  }
}

TEST(IniText, Utf16ComesBackWhateverItHolds) {
  using namespace std::string_literals;
  for (const std::string& units :
       {"\xFF\xFE"s, "\xFF\xFE\0\xD8\0\xD8\0\xDC\0\xDC"s, "\xFF\xFE\xFF\xFF\0\0"s}) {
    EXPECT_EQ(EncodeUtf16(DecodeUtf16(units, IniEncoding::Utf16Le), IniEncoding::Utf16Le), units);
    EXPECT_EQ(EncodeUtf16(DecodeUtf16(units, IniEncoding::Utf16Be), IniEncoding::Utf16Be), units);
  }
}

TEST(IniText, Utf16TakesBytesThatAreNoTextForWhatItMakesOfThem) {
  IniText text("\xFF\xFE");
  for (const char* value : {"1", "\xFE"}) {
    text.Set("S\xFF", "k\xFF", value);
    EXPECT_EQ(Told(text), Told(IniText(text.Contents())));
  }
  EXPECT_EQ(text.Find("S\xFF", "k\xFF"), "\uFFFD");
  EXPECT_EQ(text.Entries("S\uFFFD").size(), 1u);
  EXPECT_TRUE(text.Remove("S\xFF", "k\xFF"));
  EXPECT_TRUE(text.RemoveSection("S\xFF"));
}

}  // namespace
