#include "gtest/gtest.h"

#include "base/DateTime.h"

namespace {

TEST(DateTime, TextFormsAndDayNumbers) {
  const struct {
    std::string_view text;
    double days;
    std::string_view written;
  } cases[] = {
      {"1899-12-30", 0, "1899-12-30T00:00:00"},
      {"2007-03-05T10:00:00", 39146 + 10 / 24.0, "2007-03-05T10:00:00"},
      {"2000-02-29 23:59:59", 36585 + 86399 / 86400.0, "2000-02-29T23:59:59"},
      {"9999-12-31T23:59:59", 2958465 + 86399 / 86400.0, "9999-12-31T23:59:59"},
  };
  for (const auto& c : cases) {
    const auto value = ParseIso8601(c.text);
    ASSERT_TRUE(value) << c.text;
    EXPECT_NEAR(value->days, c.days, 1e-9) << c.text;
    EXPECT_EQ(ToIso8601(*value), c.written);
  }
}

TEST(DateTime, RefusesWhatIsNoDate) {
  for (const char* text : {"", "2007", "2007-3-5", "2007-02-29", "2007-13-01", "2007/03/05", "2007-03-05T",
                           "2007-03-05T24:00", "2007-03-05T10:60", "2007-03-05T10:00:60", "2007-03-05x10:00",
                           "2007-03-05T10:00:00Z", "2007-03-05T1:00"}) {
    EXPECT_FALSE(ParseIso8601(text)) << text;
  }
}

TEST(DateTime, RoundsToTheNearestSecond) { EXPECT_EQ(ToIso8601({1 - 0.4 / 86400}), "1899-12-31T00:00:00"); }

TEST(DateTime, FromUnixTime) {
  EXPECT_EQ(ToIso8601(FromUnixSeconds(0)), "1970-01-01T00:00:00");
  EXPECT_EQ(ToIso8601(FromUnixSeconds(1173088800.2)), "2007-03-05T10:00:00");
}

}  // namespace
