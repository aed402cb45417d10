#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/Vekrun.h"
#include "support/posix/Terminal.h"

namespace {

using testing::HasSubstr;

const StringList kPassword{"exec", "HPROMPTFORVAR", "Variables+=PW", "SecretVariables+=PW", "-v"};

bool SoonHolds(const std::function<bool()>& condition) {
  for (int tries = 0; tries < 1000 && !condition(); ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return condition();
}

TEST(Questions, AreAnsweredInOneLine) {
  const struct {
    StringList properties, typed;
    std::string asks;
    int exitCode;
  } kCases[] = {
      {{"UseYesAndNo=True"}, {"maybe", "YE"}, "Go?\nConfirm? Yes/No [Yes]: ", 0},
      {{"UseYesAndNo=True"}, {"n"}, "Go?\nConfirm? Yes/No [Yes]: ", 1},
      {{"UseYesAndNo=True", "DefaultIsCancel=True"}, {""}, "Go?\nConfirm? Yes/No [No]: ", 1},
      {{}, {" O "}, "Go?\nConfirm? OK/Cancel [OK]: ", 0},
      {{"AnswerAction=FailOnOK"}, {""}, "Go?\nConfirm? OK/Cancel [OK]: ", 1},
      {{"AnswerAction=FailOnOK"}, {"c"}, "Go?\nConfirm? OK/Cancel [OK]: ", 0},
      {{}, {std::string(1 << 20, 'o'), "o"}, "Go?\nConfirm? OK/Cancel [OK]: ", 0},
  };
  for (const auto& test : kCases) {
    StringList arguments{"exec", "HASKQUESTION", "PromptText=Go?"};
    arguments.insert(arguments.end(), test.properties.begin(), test.properties.end());
    Terminal terminal(arguments);
    EXPECT_THAT(terminal.WaitFor("]: "), testing::EndsWith(test.asks));
    for (size_t i = 0; i < test.typed.size(); ++i) {
      if (i > 0) terminal.WaitFor("]: ");
      terminal.Type(test.typed[i] + '\n');
    }
    EXPECT_EQ(terminal.ExitCode(), test.exitCode) << test.asks << test.typed.back();
  }
}

TEST(Questions, FitANarrowTerminalAndCannotObeyIt) {
  Terminal terminal({"exec", "HASKQUESTION",
                     "PromptText=Shall all of this go to the servers\nnow, \x1B[2J"
                     "\u65E5\u672C\u8A9E\u65E5\u672C\u8A9E\u65E5\u672C\u8A9E\u65E5\u672C\u8A9E\u65E5\u672C?"},
                    40);
  EXPECT_THAT(terminal.WaitFor("]: "),
              HasSubstr("\nShall all of this go to the servers\nnow,\n\\x1B[2J"
                        "\u65E5\u672C\u8A9E\u65E5\u672C\u8A9E\u65E5\u672C\u8A9E"
                        "\u65E5\u672C\u8A9E\u65E5\u672C?\nConfirm? OK/Cancel [OK]: "));
}

TEST(Questions, ChoicesAreNumberedAndTakenByTheirBeginning) {
  const StringList arguments{"exec",
                             "HMULTIQUESTION",
                             "PromptText=Which?",
                             "Answers+=Debug",
                             "Answers+= ",
                             "Answers+=Rel",
                             "Answers+=Relaxed",
                             "Answers+=2024",
                             "VekVariable=X",
                             "DefaultAnswer=2",
                             "-v"};
  const struct {
    StringList typed;
    std::string wanted;
  } kCases[] = {
      {{""}, "X = Rel"},      {{"REL"}, "X = Rel"}, {{"5", "re", "d"}, "X = Debug"},
      {{"3"}, "X = Relaxed"}, {{"20"}, "X = 2024"},
  };
  for (const auto& test : kCases) {
    Terminal terminal(arguments);
    EXPECT_THAT(terminal.WaitFor("]: "),
                HasSubstr("Which?\n  1. Debug\n* 2. Rel\n  3. Relaxed\n  4. 2024\nAnswer [2]: "));
    for (size_t i = 0; i < test.typed.size(); ++i) {
      const std::string again = i > 0 ? terminal.WaitFor("]: ") : "";
      EXPECT_THAT(again, HasSubstr(i > 0 ? "The answer is a number from 1 to 4" : ""));
      terminal.Type(test.typed[i] + '\n');
    }
    EXPECT_THAT(terminal.WaitFor("succeeded"), HasSubstr(test.wanted + '\n'));
  }
}

TEST(Questions, APathIsAskedForAgainUntilItExists) {
  const TempFolder folder;
  folder.Write("here");
  Terminal terminal({"exec", "PROMPTFORDIRORFILE", "PromptText=Where?", "VekVariable=F", "-v"});
  terminal.WaitFor("Where? ");
  terminal.Type(folder.Path() + '\n');
  EXPECT_THAT(terminal.WaitFor("Where? "), HasSubstr("There is no file \"" + folder.Path() + "\".\n"));
  terminal.Type(folder.Path("HERE") + '\n');
  EXPECT_THAT(terminal.WaitFor("succeeded"), HasSubstr("F = " + folder.Path("HERE")));
}

TEST(Questions, EndWithTheInputTheUserOrTheTime) {
  const StringList question{"exec", "HASKQUESTION", "PromptText=Go?"};
  const struct {
    StringList more;
    std::string keys;
    int exitCode;
  } kCases[] = {{{}, "\x04", 1}, {{}, "\x03", 130}, {{}, "o\x04\x04", 1}, {{"TimeoutSeconds=1"}, "", 1}};
  for (const auto& test : kCases) {
    StringList arguments = question;
    arguments.insert(arguments.end(), test.more.begin(), test.more.end());
    Terminal terminal(arguments);
    terminal.WaitFor("]: ");
    terminal.Type(test.keys);
    EXPECT_EQ(terminal.ExitCode(), test.exitCode);
  }
  const TempFolder folder;  // a log that outlives the terminal
  Terminal terminal({"exec", "HASKQUESTION", "PromptText=Go?", "--log", folder.Path("log")});
  terminal.WaitFor("]: ");
  terminal.Type("o");
  terminal.HangUp();
  EXPECT_NE(terminal.ExitCode(), 0);
}

TEST(Questions, ASecretIsTypedUnseenAndShownNowhere) {
  Terminal terminal(kPassword);
  terminal.WaitFor("PW: ");
  EXPECT_TRUE(SoonHolds([&] { return !terminal.Echoes(); }));
  terminal.Type("open sesame\n");
  const std::string shown = terminal.WaitFor("succeeded");
  EXPECT_THAT(shown, HasSubstr("PW = ********\n"));
  EXPECT_THAT(shown, testing::Not(HasSubstr("sesame")));
  EXPECT_TRUE(terminal.Echoes());
  EXPECT_EQ(terminal.ExitCode(), 0);
}

TEST(Questions, TheTerminalIsLeftAsItWasFound) {
  for (const int signal : {SIGINT, SIGTERM, SIGKILL}) {
    Terminal terminal(kPassword);
    terminal.WaitFor("PW: ");
    EXPECT_TRUE(SoonHolds([&] { return !terminal.Echoes(); }));
    terminal.Send(signal);
    EXPECT_TRUE(SoonHolds([&] { return terminal.Echoes(); })) << signal;
    EXPECT_EQ(terminal.ExitCode(), signal == SIGKILL ? 128 + SIGKILL : 130);
  }
}

}  // namespace
