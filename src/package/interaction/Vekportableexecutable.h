#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "interaction/Vekversionresource.h"

/// The file ends, or points, where it must not.
struct EDamagedFile {};

/// Little-endian numbers of a piece of a file; raises EDamagedFile beyond its end.
class FileBytes {
 public:
  explicit FileBytes(std::string bytes) : bytes_(std::move(bytes)) {}
  size_t Size() const { return bytes_.size(); }
  uint16_t U16(size_t at) const { return static_cast<uint16_t>(Number(at, 2)); }
  uint32_t U32(size_t at) const { return Number(at, 4); }

 private:
  uint32_t Number(size_t at, size_t size) const;

  std::string bytes_;
};

/// A program file, as far as it takes to find a resource. What it reads raises EDamagedFile where the file is
/// not what it says.
class PortableExecutable {
 public:
  explicit PortableExecutable(const FileReader& file);

  /// The first resource of that type, of its first name and language; at most so many bytes of it. Empty when
  /// there is none.
  std::string FirstResource(uint32_t type, size_t most) const;

 private:
  struct Section {
    uint32_t address, size, position;
  };
  /// An entry of a folder of resources: what it stands for and where that is.
  struct Entry {
    uint32_t id;
    uint32_t offset;
  };

  FileBytes Read(uint64_t position, size_t count) const;
  void ReadSections(uint64_t position, size_t count);
  uint64_t PositionOf(uint32_t address) const;
  std::vector<Entry> ReadFolder(uint32_t offset) const;
  std::string ReadData(uint32_t offset, size_t most) const;

  const FileReader& file_;
  uint32_t resources_ = 0;  // the address of the outermost folder; 0: there is none
  std::vector<Section> sections_;
};
