#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "interaction/VekDiskInfoAction.h"
#include "platform/Disk.h"
#include "platform/Environment.h"
#include "support/ActionFixture.h"

namespace {

using testing::ElementsAre;

/// A disk of 10 GB with 1.5 GB left.
struct SmallDisk final : Disk {
  SysResult GetSpace(std::string_view path, DiskSpace& space) override {
    asked = path;
    space = {3ULL << 29, 10ULL << 30};
    return path == "X:\\" ? SysResult::Failure(Win32Error::PathNotFound) : SysResult();
  }
  std::string asked;
};

struct DiskSpaceTest : ActionFixture, testing::Test {
  using ActionFixture::Run;

  DiskSpaceTest()
      : ActionFixture([this](const Platform& real) {
          Platform small = real;
          small.disk = &disk;
          return small;
        }) {}

  SmallDisk disk;
  TDiskInfoAction action{Context()};
};

TEST_F(DiskSpaceTest, RoundsDownInEachUnit) {
  action.Drive = "c";
  action.FreeSpaceVar = "FREE";
  action.TotalSpaceVar = "TOTAL";
  const struct {
    TDiskSpaceUnit unit;
    std::string numbers;
    int64_t free;
  } kCases[] = {
      {TDiskSpaceUnit::suBytes, "1610612736 of 10737418240 bytes", 1610612736},
      {TDiskSpaceUnit::suKilobytes, "1572864 of 10485760 KB", 1572864},
      {TDiskSpaceUnit::suMegabytes, "1536 of 10240 MB", 1536},
      {TDiskSpaceUnit::suGigabytes, "1 of 10 GB", 1},
  };
  for (const auto& [unit, numbers, free] : kCases) {
    action.SpaceUnit = unit;
    EXPECT_TRUE(Run(action));
    EXPECT_THAT(Lines(), ElementsAre("Free space on c : " + numbers));
    EXPECT_EQ(Context().GetVariableValue("FREE"), Variant(free));
  }
  EXPECT_EQ(Context().GetVariableValue("TOTAL"), Variant(int64_t{10}));
}

TEST_F(DiskSpaceTest, KnowsDrivesAndPaths) {
  for (const auto& [drive, asked] :
       {std::pair{"c", "c:\\"}, std::pair{"C:", "C:\\"}, std::pair{"a/b", "a/b"}}) {
    action.Drive = drive;
    EXPECT_TRUE(Run(action));
    EXPECT_EQ(disk.asked, asked);
  }
  action.Drive = "";
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(disk.asked, GetPlatform().environment->CurrentFolder());
  action.Drive = "X:";
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(),
              ElementsAre("Error reading free space of X: : " + SystemText(Win32Error::PathNotFound)));
}

TEST_F(DiskSpaceTest, FailsBelowTheMinimum) {
  action.Drive = "c";
  action.SpaceUnit = TDiskSpaceUnit::suGigabytes;
  action.FailIfLess = true;
  const struct {
    std::string minimum, line;
  } kCases[] = {
      {"1", ""},
      {" 1.5 ", ""},
      {"2", "Not enough free space, needed : 2 GB"},
      {"1.51", "Not enough free space, needed : 1.51 GB"},
      {"-1", "Minimum Free Space: \"-1\" is no number"},
      {"1 GB", "Minimum Free Space: \"1 GB\" is no number"},
  };
  for (const auto& [minimum, line] : kCases) {
    action.MinimumFree = minimum;
    EXPECT_EQ(Run(action), line.empty()) << minimum;
    EXPECT_EQ(Lines().back(), line.empty() ? "Free space on c : 1 of 10 GB" : line);
  }
}

}  // namespace
