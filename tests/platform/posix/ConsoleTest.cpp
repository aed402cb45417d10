#include "platform/PlatformTest.h"

namespace {

using PosixConsoleTest = PlatformTest;

TEST_F(PosixConsoleTest, AWriteThatFailsIsReported) {
  SysResult result;
  const auto stream = owner->GetConsole().OpenFile(Path("log"), result);
  WithFileSizeLimit(10, [&] { result = stream->Write("more than ten bytes"); });
  EXPECT_EQ(result.code, Win32Error::DiskFull);
}

}  // namespace
