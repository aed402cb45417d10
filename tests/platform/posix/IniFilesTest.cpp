#include <sys/wait.h>
#include <unistd.h>

#include "platform/IniFiles.h"
#include "platform/PlatformTest.h"

namespace {

class PosixIniFilesTest : public PlatformTest {
 protected:
  std::string ValueOf(std::string_view name, std::string_view key) {
    std::optional<std::string> value;
    EXPECT_TRUE(ini.Read(Path(name), "S", key, value));
    return value.value_or("<none>");
  }

  IniFiles& ini = *owner->Get().iniFiles;
};

TEST_F(PosixIniFilesTest, BytesThatAreNoTextComeThrough) {
  folder.Write("f.ini", "[S]\na=\xFF\xFE!\n\xFF=2\n");
  EXPECT_EQ(ValueOf("f.ini", "a"), "\xFF\xFE!");
  EXPECT_EQ(ValueOf("f.ini", "\xFF"), "2");
}

TEST_F(PosixIniFilesTest, NamesInOtherCaseAndLinksLeadToTheFile) {
  folder.Write("Real.INI", "[S]\na=1\n");
  MakeLink("Real.INI", Path("link.ini"));
  EXPECT_EQ(ValueOf("real.ini", "a"), "1");
  EXPECT_TRUE(ini.Write(Path("REAL.ini"), "S", "a", "2"));
  EXPECT_EQ(ValueOf("link.ini", "a"), "2");
  EXPECT_TRUE(ini.Write(Path("link.ini"), "S", "a", "3"));
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"Real.INI", "link.ini"}));
  EXPECT_EQ(folder.Read("Real.INI"), "[S]\na=3\n");
  EXPECT_EQ(ValueOf("Real.INI", "a"), "3");
}

TEST_F(PosixIniFilesTest, AFullDiskLeavesTheOldFile) {
  const std::string before = "[S]\na=1\n";
  folder.Write("f.ini", before);
  SysResult written;
  WithFileSizeLimit(before.size(), [&] { written = ini.Write(Path("f.ini"), "S", "a", "12345"); });
  EXPECT_EQ(written.code, Win32Error::DiskFull);
  EXPECT_EQ(folder.Read("f.ini"), before);
  EXPECT_EQ(folder.Names().size(), 1u);
  EXPECT_EQ(ValueOf("f.ini", "a"), "1");
}

TEST_F(PosixIniFilesTest, WritersOfSeveralProcessesLoseNothing) {
  folder.Write("f.ini", "[S]\n");
  constexpr int kWriters = 4, kWrites = 25;
  pid_t writers[kWriters];
  for (int w = 0; w < kWriters; ++w) {
    writers[w] = fork();
    if (writers[w] != 0) continue;
    bool done = true;
    for (int i = 0; i < kWrites; ++i) {
      done = ini.Write(Path("f.ini"), "S", std::to_string(w) + "-" + std::to_string(i), "x").ok && done;
    }
    _exit(done ? 0 : 1);
  }
  for (const pid_t writer : writers) {
    int status = -1;
    waitpid(writer, &status, 0);
    EXPECT_EQ(status, 0);
  }
  std::vector<IniEntry> entries;
  EXPECT_TRUE(ini.ReadEntries(Path("f.ini"), "S", entries));
  EXPECT_EQ(entries.size(), size_t{kWriters * kWrites});
}

}  // namespace
