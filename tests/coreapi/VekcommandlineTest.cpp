#include "gtest/gtest.h"

#include "coreapi/Vekcommandline.h"

namespace {

TEST(CommandLineBuilder, QuotesWhatTheModeSays) {
  using enum ArgumentQuoting;
  const struct {
    const char* switchText;
    const char* value;
    ArgumentQuoting quoting;
    const char* wanted;
  } cases[] = {
      {"/R:", "10", AsItStands, "/R:10"},
      {"/XF ", R"("a b" c)", AsItStands, R"(/XF "a b" c)"},
      {"/NP", "", WhenNeeded, "/NP"},
      {"/XD a b", "", WhenNeeded, "/XD a b"},
      {"", R"(C:\a\)", WhenNeeded, R"(C:\a\)"},
      {"", R"(C:\a b\)", WhenNeeded, R"("C:\a b\\")"},
      {"", "a\tb", WhenNeeded, "\"a\tb\""},
      {"", R"("a b")", WhenNeeded, R"("a b")"},
      {"", R"(C:\a)", Always, R"("C:\a")"},
      {"/LOG:", R"(C:\a b\\)", Always, R"(/LOG:"C:\a b\\\\")"},
      {"", R"("C:\a b")", Always, R"("C:\a b")"},
      {"", R"(say \"hi)", Always, R"("say \\\"hi")"},
      {"", "", Always, R"("")"},
  };
  const auto builder = CreateCommandLineBuilder();
  for (const auto& [switchText, value, quoting, wanted] : cases) {
    EXPECT_EQ(builder->AddArgument(switchText, value, quoting).Text(), wanted);
  }
}

TEST(CommandLineBuilder, JoinsWithSingleBlanks) {
  const auto builder = CreateCommandLineBuilder();
  EXPECT_EQ(builder->CommandLineText(), "");
  builder->AddArgument("", "a b", ArgumentQuoting::WhenNeeded);
  builder->AddArgument("", "", ArgumentQuoting::AsItStands);
  builder->AddArgument("/W:", "30", ArgumentQuoting::AsItStands);
  EXPECT_EQ(builder->CommandLineText(), "\"a b\" /W:30");
  builder->Reset(1);
  EXPECT_EQ(builder->CommandLineText(), "\"a b\"");
  builder->Reset(0);
  EXPECT_EQ(builder->CommandLineText(), "");
}

}  // namespace
