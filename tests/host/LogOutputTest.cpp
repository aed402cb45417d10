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
