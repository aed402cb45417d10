#include "gtest/gtest.h"

#include "host/LogTesting.h"
#include "host/log/LogOutput.h"
#include "host/log/Logs.h"

namespace {

TEST(LogOutput, DropsEverythingAfterTheFirstFailedWrite) {
  MemoryStream stream(8);
  int failures = 0;
  LogOutput output(stream, [&failures] { ++failures; });
  output.Write("12345");
  EXPECT_FALSE(output.Failed());
  output.Write("67890");
  output.Write("x");
  EXPECT_TRUE(output.Failed());
  EXPECT_EQ(output.FailureCode(), Win32Error::DiskFull);
  EXPECT_EQ(failures, 1);
  EXPECT_EQ(stream.calls, 2);
  EXPECT_EQ(stream.Text(), "12345");
}

TEST(LogOutput, WhatTheFailureSetsOffIsNotWritten) {
  MemoryStream stream(0);
  LogOutput* self = nullptr;
  LogOutput output(stream, [&self] { self->Write("stopping"); });
  self = &output;
  output.Write("x");
  EXPECT_EQ(stream.calls, 1);
}

TEST(LogOutput, WhatIsHeldBackIsWrittenInOneGo) {
  MemoryStream stream(1000000);
  LogOutput output(stream, [] {});
  const auto log = CreateJsonLog(output);
  log->Hold(true);
  log->Message("/1", "a");
  log->Message("/1", "b");
  EXPECT_EQ(stream.calls, 0);
  log->Hold(false);
  EXPECT_EQ(stream.calls, 1);
  log->Message("/1", "c");
  EXPECT_EQ(stream.calls, 2);
  EXPECT_EQ(SplitLines(stream.Text()).size(), 3u);

  output.Hold(true);
  output.Write(std::string(400000, 'x'));  // not even then is memory without bounds
  EXPECT_EQ(stream.calls, 3);
}

TEST(LogOutput, EveryFormatEndsQuietlyOnAFullDisk) {
  for (const auto create : {&CreateJsonLog, &CreateJunitLog, +[](LogOutput& output) {
                              return CreateTextLog(output, {.liveProgress = true});
                            }}) {
    MemoryStream stream(60);
    int failures = 0;
    LogOutput output(stream, [&failures] { ++failures; });
    PlaySmallBuild(*create(output));
    EXPECT_EQ(failures, 1);
    EXPECT_LE(stream.Text().size(), 60u);
  }
}

}  // namespace
