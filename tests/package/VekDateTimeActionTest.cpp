#include "gmock/gmock.h"

#include "base/DateTime.h"
#include "interaction/VekDateTimeAction.h"
#include "interaction/Vekdatetimeformat.h"
#include "platform/Clock.h"
#include "platform/Contents.h"
#include "support/Exchanged.h"

namespace {

using testing::ElementsAre;

TDateTime At(std::string_view text) { return *ParseIso8601(text); }

TEST(FormatDateTime, ReadsItsLetters) {
  const struct {
    std::string_view format, wanted;
  } kCases[] = {
      {"d dd ddd dddd", "5 05 Mon Monday"},
      {"m mm mmm mmmm", "3 03 Mar March"},
      {"yy yyyy YYYY", "07 2007 2007"},
      {"h hh n nn s ss", "9 09 4 04 8 08"},
      {"z zzz", "7 007"},
      {"hh:mm, d/m", "09:04, 5/3"},          // minutes right after the hour
      {"hh:mm mm h mmm", "09:04 03 9 Mar"},  // and nowhere else
      {"h AM/PM am/pm a/p A/P", "9 AM am a A"},
      {"dd'd mmm'\"y'y\"yy", "05d mmmy'y07"},
      {"'open", "open"},
      {"\u00FCber T%.", "\u00FCber T%."},
  };
  const TDateTime when{At("2007-03-05T09:04:08").days + 0.007 / 86400};
  for (const auto& [format, wanted] : kCases) EXPECT_EQ(FormatDateTime(when, format), wanted) << format;
  for (const auto& [time, wanted] :
       {std::pair{"00:30", "12:30 am"}, std::pair{"12:00", "12:00 pm"}, std::pair{"23:59", "11:59 pm"}}) {
    EXPECT_EQ(FormatDateTime(At("2007-03-05T" + std::string(time)), "h:nn am/pm"), wanted);
  }
  EXPECT_EQ(FormatDateTime({At("2008-01-01").days - 1e-9}, "yyyy-mm-dd hh:nn:ss.zzz"),
            "2008-01-01 00:00:00.000");
  EXPECT_EQ(FormatDateTime(At("1899-12-29T06:00:00"), "dddd yyyy-mm-dd hh"), "Friday 1899-12-29 06");
}

/// Noon of a fixed day, two hours ahead of universal time.
struct FixedClock final : Clock {
  double Seconds() override { return 0; }
  TDateTime LocalNow() override { return At("2007-03-05T12:00:00"); }
  TDateTime UtcNow() override { return ToUtc(LocalNow()); }
  TDateTime ToUtc(TDateTime local) override { return {local.days - 2.0 / 24}; }
};

struct GetDateTimeTest : ActionFixture, testing::Test {
  using ActionFixture::Run;

  GetDateTimeTest() : ActionFixture(Exchanged(&Platform::clock, clock)) { action.VekVariable = "WHEN"; }
  std::string Value() { return VariantToText(Context().GetVariableValue("WHEN")); }

  FixedClock clock;
  TDateTimeAction action{Context()};
};

TEST_F(GetDateTimeTest, FormatsTheClock) {
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("Date and time : 2007-03-05 12:00:00"));
  EXPECT_EQ(Value(), "2007-03-05 12:00:00");
  action.UseUTC = true;
  action.OffsetDays = -5;
  action.DateTimeFormat = " ";
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("Date and time : 2007-02-28T10:00:00"));
  EXPECT_EQ(Context().GetVariableValue("WHEN"), Variant(At("2007-02-28T10:00:00")));
  action.OffsetDays = 2147483647;
  EXPECT_FALSE(Run(action));
}

TEST_F(GetDateTimeTest, TakesTheLastWriteOfAFile) {
  folder.Write("f");
  std::unique_ptr<OpenFile> file;
  ASSERT_TRUE(GetPlatform().contents->Open(folder.Path("f"), OpenMode::Modify, ShareMode::DenyNone, file));
  ASSERT_TRUE(file->SetLastWrite(At("2001-02-03T04:05:06")));
  file.reset();
  action.DateTimeSource = TDateTimeSource::dsFile;
  action.FileName = folder.Path("f");
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Value(), "2001-02-03 04:05:06");
  action.UseUTC = true;
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Value(), "2001-02-03 02:05:06");
  action.FileName = folder.Path("none");
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("ERROR - File missing: " + folder.Path("none")));
}

}  // namespace
