#include "platform/posix/files/TemporaryName.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>

#include "platform/posix/find/FolderReader.h"

namespace {

constexpr std::string_view kPrefix = ".vek-";
constexpr size_t kDigits = 16;

}  // namespace

std::string TemporaryName() {
  uint64_t number = 0;
  if (getrandom(&number, sizeof number, 0) < 0) return {};
  char name[32];
  return {name, static_cast<size_t>(std::snprintf(name, sizeof name, "%s%016llx", kPrefix.data(),
                                                  static_cast<unsigned long long>(number)))};
}

bool IsTemporaryName(std::string_view name) {
  return name.size() == kPrefix.size() + kDigits && name.starts_with(kPrefix) &&
         name.find_first_not_of("0123456789abcdef", kPrefix.size()) == std::string_view::npos;
}

void RemoveAbandoned(int folder, const char* name) {
  const UniqueFd file(openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat status = {};
  const bool isOurs = file && fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode);
  if (isOurs && flock(file.Get(), LOCK_EX | LOCK_NB) == 0) unlinkat(folder, name, 0);
}

void RemoveAllAbandoned(int folder) {
  FolderReader reader(folder);
  if (!reader) return;
  while (const dirent* entry = reader.Next()) {
    if (IsTemporaryName(entry->d_name)) RemoveAbandoned(folder, entry->d_name);
  }
}
