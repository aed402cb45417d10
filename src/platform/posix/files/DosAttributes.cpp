#include "platform/posix/files/DosAttributes.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/FileAttributes.h"

namespace {

constexpr uint32_t kStored = FileAttribute::Hidden | FileAttribute::System | FileAttribute::Archive;

// Binary form, little endian: an empty text and padding, the version (16 bits), the version again as the
// choice of a union, the valid fields (32 bits), the attribute word (32 bits), further fields.
constexpr size_t kVersionAt = 2, kValidAt = 8, kWordAt = 12, kBinarySize = 16;
constexpr uint32_t kWordIsValid = 1;

uint32_t ReadNumber(std::string_view bytes, size_t at, size_t size) {
  uint32_t number = 0;
  for (size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

void WriteNumber(std::string& bytes, size_t at, uint32_t number) {
  for (size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(number >> 8 * i & 0xFF);
}

bool IsBinary(std::string_view value) {
  if (value.size() < kBinarySize || value[0] != 0 || value[1] != 0) return false;
  const uint32_t version = ReadNumber(value, kVersionAt, 2);
  return version >= 3 && version <= 5;
}

using ValueBuffer = std::array<char, 256>;

/// A path that leads through the descriptor, for calls that know no folder descriptors.
struct PathThroughFolder {
  PathThroughFolder(int folder, const char* name) {
    std::snprintf(text, sizeof text, "/proc/self/fd/%d/%s", folder, name);
  }
  char text[300];
};

/// The newer system call needs no path; older systems do not have it.
ssize_t ReadThroughFolder(int folder, const char* name, ValueBuffer& buffer) {
  constexpr long kGetXattrAt = 464;
  struct Arguments {
    uint64_t value;
    uint32_t size;
    uint32_t flags;
  };
  static std::atomic<bool> missing = false;
  if (!missing) {
    Arguments arguments{reinterpret_cast<uintptr_t>(buffer.data()), static_cast<uint32_t>(buffer.size()), 0};
    const long size = syscall(kGetXattrAt, folder, name, 0, kDosAttribute, &arguments, sizeof arguments);
    if (size >= 0 || (errno != ENOSYS && errno != EPERM)) return size;
    missing = true;
  }
  return getxattr(PathThroughFolder(folder, name).text, kDosAttribute, buffer.data(), buffer.size());
}

/// The stored value; empty when there is none.
std::string_view ReadValue(int folder, const char* name, ValueBuffer& buffer) {
  const ssize_t size = ReadThroughFolder(folder, name, buffer);
  return size > 0 ? std::string_view(buffer.data(), static_cast<size_t>(size)) : std::string_view();
}

std::string_view ReadValue(int fd, ValueBuffer& buffer) {
  const ssize_t size = fgetxattr(fd, kDosAttribute, buffer.data(), buffer.size());
  return size > 0 ? std::string_view(buffer.data(), static_cast<size_t>(size)) : std::string_view();
}

/// The attributes that a stored value, or the lack of one, gives the entry of that name.
uint32_t Meaning(std::string_view value, std::string_view name) {
  const auto word = ParseDosAttribute(value);
  return word ? *word & kStored : ImpliedAttributes(name);
}

}  // namespace

uint32_t ImpliedAttributes(std::string_view name) {
  return name.starts_with('.') && name != "." && name != ".." ? FileAttribute::Hidden : 0;
}

std::optional<uint32_t> ParseDosAttribute(std::string_view value) {
  if (IsBinary(value)) {
    if ((ReadNumber(value, kValidAt, 4) & kWordIsValid) == 0) return {};
    return ReadNumber(value, kWordAt, 4);
  }
  if (!value.starts_with("0x") && !value.starts_with("0X")) return {};
  uint32_t word = 0;
  const auto [end, error] = std::from_chars(value.data() + 2, value.data() + value.size(), word, 16);
  return error == std::errc() ? std::optional(word) : std::nullopt;
}

std::string WithDosAttributes(std::string_view value, uint32_t attributes) {
  const uint32_t word = (ParseDosAttribute(value).value_or(0) & ~kStored) | (attributes & kStored);
  if (!IsBinary(value)) {
    char text[16];
    return {text, static_cast<size_t>(std::snprintf(text, sizeof text, "0x%x", word))};
  }
  std::string patched(value);
  WriteNumber(patched, kValidAt, ReadNumber(value, kValidAt, 4) | kWordIsValid);
  WriteNumber(patched, kWordAt, word);
  return patched;
}

uint32_t StoredAttributes(int folder, const char* name) {
  ValueBuffer buffer;
  return Meaning(ReadValue(folder, name, buffer), name);
}

bool StoreAttributes(int folder, const char* name, uint32_t attributes) {
  ValueBuffer buffer;
  const std::string_view old = ReadValue(folder, name, buffer);
  if (Meaning(old, name) == (attributes & kStored)) return true;
  const std::string value = WithDosAttributes(old, attributes);
  const PathThroughFolder path(folder, name);
  return setxattr(path.text, kDosAttribute, value.data(), value.size(), 0) == 0;
}

uint32_t OpenAttributes(int fd, std::string_view name) {
  ValueBuffer buffer;
  return Meaning(ReadValue(fd, buffer), name);
}

bool StoreOpenAttributes(int fd, std::string_view name, uint32_t attributes) {
  ValueBuffer buffer;
  const std::string_view old = ReadValue(fd, buffer);
  if (Meaning(old, name) == (attributes & kStored)) return true;
  const std::string value = WithDosAttributes(old, attributes);
  return fsetxattr(fd, kDosAttribute, value.data(), value.size(), 0) == 0;
}
