#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/RegistryFormat.h"
#include "platform/RegistryTesting.h"

namespace {

const std::string kHead = std::string(kRegistryHeader) + "\n\n";

class RegistryStoreTest : public RegistryTestBase {
 protected:
  static SysResult Put(RegistryKey& key, std::string_view name, std::string_view text) {
    return key.Write(name, {RegistryType::String, std::string(text)});
  }

  /// A platform of its own on the same store, as another process has one.
  std::unique_ptr<PlatformOwner> Other(const std::string& file) {
    return CreatePlatform([](char) { return std::nullopt; }, [file] { return file; });
  }
  std::string ValueIn(PlatformOwner& other, std::string_view name) {
    std::unique_ptr<RegistryKey> key;
    const SysResult opened = other.Get().registry->Open(RegistryRoot::CurrentUser, kTestKey,
                                                        RegistryAccess::Read, RegistryOpen::Existing, key);
    return opened ? TextOf(*key, name) : "<no key>";
  }

  /// Runs `body` in a process that is killed behind it.
  void InKilledProcess(const std::function<void()>& body) {
    const pid_t child = fork();
    if (child == 0) {
      body();
      kill(getpid(), SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
  }

  /// Ends this platform's run.
  std::string FileAfterTheRun() {
    owner.reset();
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"registry.reg"}));
    return folder.Read("registry.reg");
  }

  const std::string kKeyLine = "[HKEY_CURRENT_USER\\" + kTestKey + "]";
};

TEST_F(RegistryStoreTest, EveryRunSeesWhatTheOthersWrite) {
  const auto other = Other(Path("registry.reg"));
  EXPECT_EQ(ValueIn(*other, "v"), "<no key>");
  const auto key = TestKey();
  for (const char* text : {"1", "2"}) {
    EXPECT_TRUE(Put(*key, "v", text));
    EXPECT_EQ(ValueIn(*other, "v"), text);
  }
  EXPECT_EQ(FileAfterTheRun(), std::string(kRegistryHeader) + "\r\n\r\n" + kKeyLine + "\r\n\"v\"=\"2\"\r\n");
  EXPECT_EQ(ValueIn(*other, "v"), "2");
}

TEST_F(RegistryStoreTest, WhatAPersonWritesIsSeenAndKept) {
  const auto key = TestKey();
  EXPECT_TRUE(Put(*key, "v", "1"));
  folder.Write("registry.reg", kHead + "; mine\n" + kKeyLine + "\n\"w\"=\"2\"\n");
  EXPECT_EQ(TextOf(*key, "w"), "2");
  EXPECT_TRUE(Put(*key, "x", "3"));
  EXPECT_EQ(FileAfterTheRun(), kHead + "; mine\n" + kKeyLine + "\n\"w\"=\"2\"\n\"v\"=\"1\"\n\"x\"=\"3\"\n");
}

TEST_F(RegistryStoreTest, ARunThatIsKilledLosesNothing) {
  InKilledProcess([this] { Put(*TestKey(), "v", "1"); });
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"registry.reg.journal"}));
  std::ofstream(Path("registry.reg.journal"), std::ios::app) << kKeyLine << "\n\"half\"=\"writ";
  const auto key = TestKey();
  EXPECT_EQ(TextOf(*key, "v"), "1");
  EXPECT_TRUE(Put(*key, "w", "2"));
  EXPECT_EQ(TextOf(*key, "half"), "<none>");
  EXPECT_EQ(FileAfterTheRun(),
            std::string(kRegistryHeader) + "\r\n\r\n" + kKeyLine + "\r\n\"v\"=\"1\"\r\n\"w\"=\"2\"\r\n");
}

TEST_F(RegistryStoreTest, WritersOfSeveralProcessesLoseNothing) {
  constexpr int kWriters = 4, kRuns = 5, kWrites = 10;
  pid_t writers[kWriters];
  for (int w = 0; w < kWriters; ++w) {
    writers[w] = fork();
    if (writers[w] != 0) continue;
    for (int i = 0; i < kRuns * kWrites; ++i) {
      if (i % kWrites == 0) owner = Other(Path("registry.reg"));
      std::unique_ptr<RegistryKey> key;
      const SysResult opened = owner->Get().registry->Open(
          RegistryRoot::CurrentUser, kTestKey, RegistryAccess::All, RegistryOpen::CreateMissing, key);
      if (!opened || !Put(*key, std::to_string(w) + "-" + std::to_string(i), "x")) _exit(1);
    }
    owner.reset();
    _exit(0);
  }
  for (const pid_t writer : writers) {
    int status = -1;
    waitpid(writer, &status, 0);
    EXPECT_EQ(status, 0);
  }
  StringList names;
  EXPECT_TRUE(TestKey()->Values(names));
  EXPECT_EQ(names.size(), size_t{kWriters * kRuns * kWrites});
}

TEST_F(RegistryStoreTest, ADamagedFileIsRefusedAndStaysAsItIs) {
  const std::string damaged = kHead + kKeyLine + "\n\"v\"=\"1\"\n\"w\"=dword:x\n";
  folder.Write("registry.reg", damaged);
  std::unique_ptr<RegistryKey> key;
  for (const RegistryOpen mode : {RegistryOpen::Existing, RegistryOpen::CreateMissing}) {
    EXPECT_EQ(Open(kTestKey, RegistryAccess::All, mode, key).code, Win32Error::BadRegistry);
    EXPECT_EQ(registry.Damage(),
              "registry store " + Path("registry.reg") + ", line 5: the value has none of the known forms");
  }
  EXPECT_EQ(folder.Read("registry.reg"), damaged);
  folder.Write("registry.reg", kHead + kKeyLine + "\n\"v\"=\"1\"\n");
  key = TestKey();
  folder.Write("registry.reg", damaged);
  EXPECT_EQ(Put(*key, "v", "2").code, Win32Error::BadRegistry);
  EXPECT_EQ(FileAfterTheRun(), damaged);
}

TEST_F(RegistryStoreTest, AFullDiskLeavesWhatWasWritten) {
  const auto key = TestKey();
  EXPECT_TRUE(Put(*key, "v", "1"));
  SysResult written;
  WithFileSizeLimit(folder.Read("registry.reg.journal").size() + 10,
                    [&] { written = Put(*key, "v", "22222"); });
  EXPECT_EQ(written.code, Win32Error::DiskFull);
  EXPECT_EQ(TextOf(*key, "v"), "1");
  EXPECT_TRUE(Put(*key, "w", "3"));
  EXPECT_EQ(ValueIn(*Other(Path("registry.reg")), "v"), "1");
  EXPECT_EQ(ValueIn(*Other(Path("registry.reg")), "w"), "3");
}

TEST_F(RegistryStoreTest, LinksAndOtherCaseLeadToOneStore) {
  folder.Write("sub/Real.reg", kHead);
  MakeLink("sub/Real.reg", Path("link.reg"));
  const auto other = Other(Path("sub/REAL.reg"));
  owner = Other(Path("link.reg"));
  std::unique_ptr<RegistryKey> key;
  EXPECT_TRUE(owner->Get().registry->Open(RegistryRoot::CurrentUser, kTestKey, RegistryAccess::All,
                                          RegistryOpen::CreateMissing, key));
  EXPECT_TRUE(Put(*key, "v", "1"));
  EXPECT_EQ(ValueIn(*other, "v"), "1");
  owner.reset();
  EXPECT_EQ(folder.Names("sub"), (std::vector<std::string>{"Real.reg"}));
  EXPECT_EQ(folder.Read("sub/Real.reg"), kHead + kKeyLine + "\n\"v\"=\"1\"\n");
}

TEST_F(RegistryStoreTest, AReadOnlyFileIsRead) {
  folder.Write("registry.reg", kHead + kKeyLine + "\n\"v\"=\"1\"\n");
  SetMode(Path("registry.reg"), 0444);
  std::unique_ptr<RegistryKey> key;
  EXPECT_EQ(Open(kTestKey, RegistryAccess::All, RegistryOpen::Existing, key).code, Win32Error::AccessDenied);
  EXPECT_TRUE(Open(kTestKey, RegistryAccess::Read, RegistryOpen::Existing, key));
  EXPECT_EQ(TextOf(*key, "v"), "1");
}

}  // namespace
