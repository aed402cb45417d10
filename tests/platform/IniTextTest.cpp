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

TEST(IniText, Utf16ComesBackWhateverItHolds) {
  using namespace std::string_literals;
  for (const std::string& units :
       {"\xFF\xFE"s, "\xFF\xFE\0\xD8\0\xD8\0\xDC\0\xDC"s, "\xFF\xFE\xFF\xFF\0\0"s}) {
    EXPECT_EQ(EncodeUtf16(DecodeUtf16(units, TextEncoding::Utf16Le), TextEncoding::Utf16Le), units);
    EXPECT_EQ(EncodeUtf16(DecodeUtf16(units, TextEncoding::Utf16Be), TextEncoding::Utf16Be), units);
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
