#include <csignal>
#include <future>

#include "platform/PlatformTest.h"

namespace {

using PosixConsoleTest = PlatformTest;

TEST_F(PosixConsoleTest, AWriteThatFailsIsReported) {
  SysResult result;
  const auto stream = owner->GetConsole().OpenFile(Path("log"), result);
  WithFileSizeLimit(10, [&] { result = stream->Write("more than ten bytes"); });
  EXPECT_EQ(result.code, Win32Error::DiskFull);
}

TEST_F(PosixConsoleTest, ATerminalThatGoesAwayInterruptsOnceHoweverOftenItSaysSo) {
  std::promise<void> called;
  const auto guard = owner->GetConsole().OnInterrupt([&] { called.set_value(); });
  raise(SIGHUP);
  raise(SIGHUP);
  called.get_future().wait();
}

TEST_F(PosixConsoleTest, WhatIsIgnoredStaysIgnored) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const auto before = std::signal(signal, SIG_IGN);
    bool called = false;
    auto guard = owner->GetConsole().OnInterrupt([&] { called = true; });
    raise(signal);
    guard.reset();  // waits for a handler that was called
    EXPECT_FALSE(called) << signal;
    EXPECT_EQ(std::signal(signal, before), SIG_IGN) << signal;
  }
}

}  // namespace
