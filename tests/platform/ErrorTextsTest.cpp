#include "gmock/gmock.h"

#include "platform/PlatformTest.h"

namespace {

TEST_F(PlatformTest, ErrorTextsAreTheSystemsOwn) {
  if (WineLimits::OwnErrorTexts()) GTEST_SKIP() << "Wine words them in its own way";
  const std::pair<uint32_t, const char*> cases[] = {
      {0, "The operation completed successfully."},
      {1, "Incorrect function."},
      {2, "The system cannot find the file specified."},
      {3, "The system cannot find the path specified."},
      {4, "The system cannot open the file."},
      {5, "Access is denied."},
      {6, "The handle is invalid."},
      {15, "The system cannot find the drive specified."},
      {16, "The directory cannot be removed."},
      {17, "The system cannot move the file to a different disk drive."},
      {18, "There are no more files."},
      {19, "The media is write protected."},
      {21, "The device is not ready."},
      {31, "A device attached to the system is not functioning."},
      {32, "The process cannot access the file because it is being used by another process."},
      {33, "The process cannot access the file because another process has locked a portion of the file."},
      {38, "Reached the end of the file."},
      {39, "The disk is full."},
      {50, "The request is not supported."},
      {80, "The file exists."},
      {87, "The parameter is incorrect."},
      {109, "The pipe has been ended."},
      {112, "There is not enough space on the disk."},
      {123, "The filename, directory name, or volume label syntax is incorrect."},
      {126, "The specified module could not be found."},
      {127, "The specified procedure could not be found."},
      {145, "The directory is not empty."},
      {170, "The requested resource is in use."},
      {183, "Cannot create a file when that file already exists."},
      {206, "The filename or extension is too long."},
      {267, "The directory name is invalid."},
      {1223, "The operation was canceled by the user."},
      {1235, "The request was aborted."},
      {1921, "The name of the file cannot be resolved by the system."},
  };
  for (const auto& [code, text] : cases) {
    EXPECT_EQ(owner->Get().errorTexts->Text(static_cast<Win32Error>(code)), text) << code;
  }
}

TEST_F(PlatformTest, AnErrorWithoutATextStillTellsItsNumber) {
  EXPECT_THAT(owner->Get().errorTexts->Text(static_cast<Win32Error>(54321)), testing::HasSubstr("54321"));
}

}  // namespace
