#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "host/expressions/Variables.h"
#include "host/secrets/SecretMask.h"
#include "support/ActionFixture.h"

namespace {

using testing::ElementsAre;

TEST(Secrets, AreHiddenInEveryFormOfPlainQuoting) {
  Secrets secrets;
  secrets.AddValue(std::string("a\"b<c>&'d e/\u00E4?"));
  const struct {
    std::string_view text, wanted;
  } kCases[] = {
      {"is a\"b<c>&'d e/\u00E4?.", "is ********."},
      {R"({"x":"a\"b<c>&'d e/ä?"})", R"({"x":"********"})"},
      {R"({"x":"a\"b<c>&'d e\/\u00e4?"})", R"({"x":"********"})"},
      {"<x>a\"b&lt;c&gt;&amp;'d e/\u00E4?</x>", "<x>********</x>"},
      {"x=\"a&quot;b&lt;c&gt;&amp;&apos;d e/\u00E4?\"", "x=\"********\""},
      {"?q=a%22b%3Cc%3E%26%27d%20e%2F%C3%A4%3F", "?q=********"},  // RFC 3986
      {"?q=a%22b%3cc%3e%26%27d+e%2f%c3%a4%3f", "?q=********"},    // as forms are sent
      {"?q=a%22b%3Cc%3E%26'd%20e%2F%C3%A4%3F", "?q=********"},    // encodeURIComponent
      {"?q=a%22b%3Cc%3E&'d%20e/%C3%A4?", "?q=********"},          // encodeURI
      {"Basic YSJiPGM+JidkIGUvw6Q/", "Basic ********"},
      {"Basic YSJiPGM-JidkIGUvw6Q_", "Basic ********"},
      {"'a\"b<c>&'\\''d e/\u00E4?'", "'********'"},
      {"a\"b<c>", "a\"b<c>"},
  };
  for (const auto& [text, wanted] : kCases) EXPECT_EQ(secrets.Mask(text), wanted);
}

TEST(Secrets, HideWhatOverlapsWholeAndNothingThatIsShort) {
  Secrets secrets;
  for (const char* value : {"abcd", "cdefg", "abc", "\u65E5\u672C\u8A9E", "first line\n}\nlast line"})
    secrets.AddValue(std::string(value));
  secrets.AddValue(int64_t{12345});
  EXPECT_EQ(secrets.Mask("abcdefg abcdabcd abc \u65E5\u672C\u8A9E 123456 }"),
            "******** **************** abc \u65E5\u672C\u8A9E ********6 }");
  EXPECT_EQ(secrets.Mask("  last line of it"), "  ******** of it");
}

TEST(Secrets, EveryValueThatAVariableHasHadIsOne) {
  Variables variables;
  variables.Set("TOKEN", std::string("before"));
  variables.MarkSecret("token");
  variables.Set("Token", std::string("after"));
  EXPECT_EQ(variables.GetSecrets().Mask("before and after"), "******** and ********");
}

TEST(SecretMask, HidesThemInEveryEvent) {
  Secrets secrets;
  RecordingEvents events;
  SecretMask mask(events, secrets);
  secrets.AddVariable("PIN");
  secrets.AddValue(std::string("hush-hush"));
  mask.BuildStart("hush-hush.vekproj");
  mask.Message("/1", "a hush-hush");
  mask.Status("/1", {"b hush-hush", "c"});
  mask.Progress("/1", "d hush-hush", 50);
  mask.Variable("/1", "COPY", std::string("[hush-hush]"));
  mask.Variable("/1", "pin", int64_t{7});
  mask.Variable("/1", "N", int64_t{7});
  mask.Error("/1", "e hush-hush");
  mask.ProgramLine("/1", ProgramStream::StdOut, "f hush-hush");
  mask.Process("/1", "g hush-hush", "/hush-hush");
  EXPECT_THAT(events.events, ElementsAre("build-start ********.vekproj", "message /1 a ********", "status /1",
                                         "progress /1 d ******** 50", "variable /1 COPY=[********]",
                                         "variable /1 pin=********", "variable /1 N=7", "error /1 e ********",
                                         "message /1 f ********", "process /1 g ********|/********"));
  EXPECT_THAT(events.lines, ElementsAre("a ********", "b ********", "c", "f ********"));
}

}  // namespace
