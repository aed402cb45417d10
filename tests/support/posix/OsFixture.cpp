#include "support/OsFixture.h"

#include <fcntl.h>
#include <fstream>
#include <signal.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "gtest/gtest.h"

void MakeLink(const std::string& target, const std::string& path) {
  ASSERT_EQ(symlink(target.c_str(), path.c_str()), 0) << path;
}

void SetMode(const std::string& path, uint32_t mode) { ASSERT_EQ(chmod(path.c_str(), mode), 0) << path; }

uint32_t ModeOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 07777;
}

void MakePipe(const std::string& path) { ASSERT_EQ(mkfifo(path.c_str(), 0600), 0) << path; }

uint64_t BytesOnDisk(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return static_cast<uint64_t>(status.st_blocks) * 512;
}

bool StoreRawAttributes(const std::string& path, const std::string& value) {
  return setxattr(path.c_str(), "user.DOSATTRIB", value.data(), value.size(), 0) == 0;
}

std::optional<std::string> RawAttributes(const std::string& path) {
  char value[256];
  const ssize_t size = getxattr(path.c_str(), "user.DOSATTRIB", value, sizeof value);
  if (size < 0) return {};
  return std::string(value, static_cast<size_t>(size));
}

bool StoresAttributes(const std::string& folder) {
  return StoreRawAttributes(folder, "0x0") && removexattr(folder.c_str(), "user.DOSATTRIB") == 0;
}

void WithFileSizeLimit(uint64_t bytes, const std::function<void()>& body) {
  const auto before = signal(SIGXFSZ, SIG_IGN);
  rlimit old = {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
  const rlimit limit = {bytes, old.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  body();
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &old), 0);
  signal(SIGXFSZ, before);
}

ExclusiveOpen::ExclusiveOpen(const std::string& path) : handle_(open(path.c_str(), O_RDWR | O_CLOEXEC)) {
  EXPECT_EQ(flock(handle_, LOCK_EX | LOCK_NB), 0) << path;
}

ExclusiveOpen::~ExclusiveOpen() { close(handle_); }

void RemoveRegistryKey(const std::string& /*path*/) {}

void SendInterrupt() { kill(getpid(), SIGINT); }

void SetVariable(const std::string& name, const std::optional<std::string>& value) {
  value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
}

bool ProcessRuns(unsigned long number) {
  // One that has ended may stay in the table for want of someone who asks for its exit code.
  std::ifstream file("/proc/" + std::to_string(number) + "/stat");
  std::string status;
  std::getline(file, status);
  const size_t nameEnd = status.rfind(')');
  return nameEnd != std::string::npos && status.size() > nameEnd + 2 && status[nameEnd + 2] != 'Z';
}
