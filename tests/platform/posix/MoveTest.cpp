#include <csignal>
#include <filesystem>
#include <fstream>

#include "base/WindowsPath.h"
#include "platform/PlatformTest.h"

namespace {

using Names = std::vector<std::string>;
using PosixMoveTest = PlatformTest;

TEST_F(PosixMoveTest, TheExactSpellingIsTheTarget) {
  folder.Write("source", "new");
  folder.Write("a.txt", "old");
  folder.Write("A.TXT", "other");
  EXPECT_TRUE(entries.Move(Path("a.txt"), Path("b.txt"), 0));
  EXPECT_EQ(entries.Move(Path("source"), Path("a.txt"), 0).code, Win32Error::AlreadyExists);
  EXPECT_EQ(entries.Move(Path("b.txt"), Path("A.TXT"), 0).code, Win32Error::AlreadyExists);
  EXPECT_TRUE(entries.Move(Path("source"), Path("a.txt"), MoveFlag::ReplaceExisting));
  EXPECT_EQ(folder.Names(), (Names{"A.TXT", "b.txt"}));
  EXPECT_EQ(folder.Read("A.TXT"), "new");
}

TEST_F(PosixMoveTest, AttributesGoAlong) {
  folder.Write(".file", "text");
  SetMode(Path(".file"), 04755);
  const bool stores = StoreRawAttributes(Path(".file"), "0x26");
  EXPECT_TRUE(entries.Move(Path(".file"), Path("moved"), 0));
  EXPECT_EQ(ModeOf(Path("moved")), 04755u);
  EXPECT_EQ(RawAttributes(Path("moved")), stores ? std::optional<std::string>("0x26") : std::nullopt);
}

TEST_F(PosixMoveTest, DanglingLinksAndPipesAreMovedAndReplaced) {
  folder.Write("file", "text");
  MakeLink("nowhere", Path("link"));
  MakePipe(Path("pipe"));
  EXPECT_EQ(entries.Move(Path("file"), Path("link"), 0).code, Win32Error::AlreadyExists);
  EXPECT_TRUE(entries.Move(Path("pipe"), Path("moved"), 0));
  EXPECT_TRUE(entries.Move(Path("link"), Path("moved"), MoveFlag::ReplaceExisting));
  EXPECT_TRUE(entries.Move(Path("file"), Path("moved"), MoveFlag::ReplaceExisting));
  EXPECT_EQ(folder.Names(), Names{"moved"});
  EXPECT_EQ(folder.Read("moved"), "text");
}

class PosixMoveAcrossTest : public PlatformTest {
 protected:
  void SetUp() override {
    const auto here = entries.Identity(folder.Path()), there = entries.Identity("/dev/shm");
    if (!there || there->volume == here->volume) GTEST_SKIP() << "there is no second volume";
    other = "/dev/shm/" + std::string(NamePart(folder.Path()));
    ASSERT_TRUE(folders.Create(other));
  }
  void TearDown() override { std::filesystem::remove_all(other); }

  std::string other;
};

TEST_F(PosixMoveAcrossTest, ALinkIsRemade) {
  MakeLink("text of the link", Path("link"));
  MakeLink("old", other + "/link");
  EXPECT_EQ(entries.Move(Path("link"), other + "/link", MoveFlag::CopyAllowed).code,
            Win32Error::AlreadyExists);
  EXPECT_TRUE(entries.Move(Path("link"), other + "/LINK", MoveFlag::CopyAllowed | MoveFlag::ReplaceExisting));
  EXPECT_TRUE(folder.Names().empty());
  EXPECT_EQ(std::filesystem::read_symlink(other + "/link"), "text of the link");
  EXPECT_TRUE(entries.Delete(other + "/link"));
  EXPECT_TRUE(folders.Remove(other));
}

TEST_F(PosixMoveAcrossTest, ModeAndAttributesAreTheSources) {
  folder.Write("file", "text");
  SetMode(Path("file"), 0751);
  const bool stores = StoreRawAttributes(Path("file"), "0x24") && StoresAttributes(other);
  EXPECT_TRUE(entries.Move(Path("file"), other + "/.moved", MoveFlag::CopyAllowed));
  EXPECT_EQ(ModeOf(other + "/.moved"), 0751u);
  EXPECT_EQ(RawAttributes(other + "/.moved"), stores ? std::optional<std::string>("0x24") : std::nullopt);
}

TEST_F(PosixMoveAcrossTest, WhoIsKilledLeavesTheSourceOnly) {
  folder.Write("file", std::string(20u << 20, 'x'));
  const auto kill = [](uint64_t, uint64_t) { raise(SIGKILL); };
  EXPECT_EXIT(entries.Move(Path("file"), other + "/file", MoveFlag::CopyAllowed, kill),
              testing::KilledBySignal(SIGKILL), "");
  EXPECT_EQ(folder.Read("file").size(), 20u << 20);
  EXPECT_TRUE(folders.Remove(other));
}

TEST_F(PosixMoveAcrossTest, ASourceThatChangesMeanwhileStays) {
  folder.Write("file", "text");
  std::ofstream(other + "/file") << "old";
  const auto change = [&](uint64_t, uint64_t) { std::ofstream(Path("file"), std::ios::app) << " and more"; };
  constexpr uint32_t kFlags = MoveFlag::CopyAllowed | MoveFlag::ReplaceExisting;
  EXPECT_EQ(entries.Move(Path("file"), other + "/file", kFlags, change).code, Win32Error::SharingViolation);
  EXPECT_EQ(folder.Read("file"), "text and more");
  std::string target;
  EXPECT_TRUE(data.ReadWhole(other + "/file", target));
  EXPECT_EQ(target, "old");
}

TEST_F(PosixMoveAcrossTest, AFullDiskLeavesTheSource) {
  folder.Write("file", std::string(100000, 'x'));
  SysResult moved;
  WithFileSizeLimit(5000,
                    [&] { moved = entries.Move(Path("file"), other + "/file", MoveFlag::CopyAllowed); });
  EXPECT_EQ(moved.code, Win32Error::DiskFull);
  EXPECT_EQ(folder.Read("file").size(), 100000u);
  EXPECT_TRUE(folders.Remove(other));
}

}  // namespace
