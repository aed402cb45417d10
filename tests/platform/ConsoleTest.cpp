#include <future>
#include <thread>

#include "platform/Console.h"
#include "platform/PlatformTest.h"

namespace {

using ConsoleTest = PlatformTest;

TEST_F(ConsoleTest, OpenFileStartsOver) {
  folder.Write("Log", "something longer");
  SysResult result;
  for (const char* name : {"LOG", "new"}) {
    const auto stream = owner->GetConsole().OpenFile(Path(name), result);
    ASSERT_NE(stream, nullptr) << name;
    EXPECT_TRUE(stream->Write("one "));
    EXPECT_TRUE(stream->Write("two"));
  }
  EXPECT_EQ(folder.Read("Log"), "one two");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"Log", "new"}));
  EXPECT_EQ(owner->GetConsole().OpenFile(Path("missing/x"), result), nullptr);
  EXPECT_EQ(result.code, Win32Error::PathNotFound);
  SetMode(Path("Log"), 0444);
  EXPECT_EQ(owner->GetConsole().OpenFile(Path("Log"), result), nullptr);
  EXPECT_EQ(result.code, Win32Error::AccessDenied);
  EXPECT_EQ(folder.Read("Log"), "one two");
}

TEST_F(ConsoleTest, TheFirstInterruptCallsTheHandlerOnAnotherThread) {
  std::promise<std::thread::id> called;
  const auto guard = owner->GetConsole().OnInterrupt([&] { called.set_value(std::this_thread::get_id()); });
  SendInterrupt();
  EXPECT_NE(called.get_future().get(), std::this_thread::get_id());
}

TEST_F(ConsoleTest, AWatchEndsUnusedAndCanBeFollowedByAnother) {
  int calls = 0;
  owner->GetConsole().OnInterrupt([&] { ++calls; }).reset();
  std::promise<void> called;
  auto guard = owner->GetConsole().OnInterrupt([&] { called.set_value(); });
  SendInterrupt();
  called.get_future().wait();
  guard.reset();
  EXPECT_EQ(calls, 0);
}

TEST_F(ConsoleTest, TheSecondInterruptEndsTheProcess) {
  EXPECT_EXIT(
      {
        const auto guard = owner->GetConsole().OnInterrupt([] {});
        SendInterrupt();
        SendInterrupt();
        std::promise<void>().get_future().wait();  // for ever
      },
      testing::ExitedWithCode(130), "");
}

}  // namespace
