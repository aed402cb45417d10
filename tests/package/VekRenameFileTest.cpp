#include "gtest/gtest.h"

#include "fileops/VekRenameFile.h"
#include "support/ActionFixture.h"
#include "support/DiskTable.h"

namespace {

TEST(RenameFiles, NewNamesFollowThePatternAndItsOddities) {
  const struct {
    StringList disk;
    const char* source;
    const char* target;
    StringList wanted;
  } cases[] = {
      {{"a.txt=", "b.txt="}, "*.txt", "*.bak", {"a.bak=", "b.bak="}},
      {{"a.txt="}, "a.txt", "new.*", {"new.txt="}},
      {{"a.tar.gz="}, "a.tar.gz", "*.*", {"a.tar.tar.gz="}},
      {{"README="}, "README", "*.*", {"READMEREADME="}},
      {{"a.txt=1", "b.txt=2"}, "*.txt", "new.txt", {"new.txt=1", "new.txtnew.txt=2"}},
      {{"dir.x/"}, "*.x", "*.y", {"dir.y/"}},
      {{"a.txt=1", "a.bak=2"}, "a.txt", "*.bak", {"a.bak=2", "a.txt=1"}},
  };
  for (const auto& c : cases) {
    ActionFixture fixture;
    const DiskTable disk(fixture.folder, fixture.GetPlatform());
    disk.Write(c.disk);
    const auto action = fixture.Make<TRenameFilesAction>();
    action->SourceSpec = WideString(fixture.folder.Path(c.source));
    action->TargetSpec = WideString(c.target);
    EXPECT_FALSE(fixture.Run(*action));
    EXPECT_TRUE(fixture.Events().events.empty());
    EXPECT_EQ(disk.Read(), c.wanted) << c.target;
  }
}

}  // namespace
