#include "interaction/VekDiskInfoAction.h"
#include "platform/Disk.h"
#include "platform/Environment.h"
#include "support/Exchanged.h"
#include "support/RunTable.h"

namespace {

/// A disk of 10 GB with 1.5 GB left.
struct SmallDisk final : Disk {
  SysResult GetSpace(std::string_view path, DiskSpace& space) override {
    asked = path;
    space = {3ULL << 29, 10ULL << 30};
    return path == "X:\\" ? SysResult::Failure(Win32Error::PathNotFound) : SysResult();
  }
  std::string asked;
};

struct SmallDiskRuns : ActionFixture {
  SmallDiskRuns() : ActionFixture(Exchanged(&Platform::disk, disk)) {}
  SmallDisk disk;
};

const std::string kDrive = "Drive=c|SpaceUnit=su", kVariables = "|FreeSpaceVar=FREE|TotalSpaceVar=TOTAL",
                  kFree = "Free space on c : ";
const std::string kLeast = kDrive + "Gigabytes|FailIfLess=True|MinimumFree=",
                  kGigabytes = kFree + "1 of 10 GB";
const std::string kTooSmall = kGigabytes + "|Not enough free space, needed : ";

// clang-format off
const RunCase kRuns[] = {
    // Rounded down in each unit.
    {"Bytes", kDrive + "Bytes" + kVariables, "", true, kFree + "1610612736 of 10737418240 bytes", "", "$FREE=Integer 1610612736"},
    {"Kilobytes", kDrive + "Kilobytes" + kVariables, "", true, kFree + "1572864 of 10485760 KB", "", "$FREE=Integer 1572864"},
    {"Megabytes", kDrive + "Megabytes" + kVariables, "", true, kFree + "1536 of 10240 MB", "", "$FREE=Integer 1536"},
    {"Gigabytes", kDrive + "Gigabytes" + kVariables, "", true, kGigabytes, "", "$FREE=Integer 1|$TOTAL=Integer 10"},
    {"Unreadable", "Drive=X:", "", false, "Error reading free space of X: : {3}", ""},
    {"Enough", kLeast + "1", "", true, kGigabytes, ""},
    {"ExactlyEnough", kLeast + " 1.5 ", "", true, kGigabytes, ""},
    {"TooLittle", kLeast + "2", "", false, kTooSmall + "2 GB", ""},
    {"ALittleTooLittle", kLeast + "1.51", "", false, kTooSmall + "1.51 GB", ""},
    {"ANegativeMinimum", kLeast + "-1", "", false, "Minimum Free Space: \"-1\" is no number", ""},
    {"NoNumber", kLeast + "1 GB", "", false, "Minimum Free Space: \"1 GB\" is no number", ""},
};
// clang-format on

TEST(DiskSpace, Runs) { ExpectRuns<TDiskInfoAction, SmallDiskRuns>(kRuns); }

TEST(DiskSpace, KnowsDrivesAndPaths) {
  SmallDiskRuns fixture;
  TDiskInfoAction action(fixture.Context());
  const std::string here = fixture.GetPlatform().environment->CurrentFolder();
  for (const auto& [drive, asked] : std::initializer_list<std::pair<std::string, std::string>>{
           {"c", "c:\\"}, {"C:", "C:\\"}, {"a/b", "a/b"}, {"", here}}) {
    action.Drive = drive;
    EXPECT_TRUE(fixture.Run(action));
    EXPECT_EQ(fixture.disk.asked, asked);
  }
}

}  // namespace
