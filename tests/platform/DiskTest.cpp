#include "platform/Disk.h"
#include "platform/PlatformTest.h"

namespace {

using DiskTest = PlatformTest;

TEST_F(DiskTest, AFileAndItsFolderAreOnOneDisk) {
  folder.Write("File");
  Disk& disk = *owner->Get().disk;
  DiskSpace ofFolder, ofFile, none;
  EXPECT_TRUE(disk.GetSpace(folder.Path(), ofFolder));
  EXPECT_TRUE(disk.GetSpace(Path("FILE"), ofFile));
  EXPECT_GT(ofFile.total, 0u);
  EXPECT_EQ(ofFile.total, ofFolder.total);
  EXPECT_LE(ofFile.free, ofFile.total);
  EXPECT_EQ(disk.GetSpace(Path("missing"), none).code, Win32Error::FileNotFound);
}

}  // namespace
