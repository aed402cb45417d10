#include "interaction/Vekportableexecutable.h"

#include <algorithm>

namespace {

constexpr uint16_t kDosMagic = 0x5A4D, kMagic32 = 0x10B, kMagic64 = 0x20B;
constexpr uint32_t kPeSignature = 0x4550, kIsFolder = 0x80000000;
constexpr size_t kResourceDirectory = 2, kDirectorySize = 8, kSectionSize = 40, kEntrySize = 8;
constexpr size_t kFolderLevels = 3;  // type, name, language

}  // namespace

uint32_t FileBytes::Number(size_t at, size_t size) const {
  if (at > bytes_.size() || bytes_.size() - at < size) throw EDamagedFile();
  uint32_t number = 0;
  for (size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes_[at + i]);
  return number;
}

PortableExecutable::PortableExecutable(const FileReader& file) : file_(file) {
  constexpr size_t kDosHeader = 64, kPeHeader = 24, kOptionalStart = 2;
  const FileBytes dos = Read(0, kDosHeader);
  if (dos.U16(0) != kDosMagic) throw EDamagedFile();
  const uint64_t start = dos.U32(0x3C);
  const FileBytes header = Read(start, kPeHeader + kOptionalStart);
  if (header.U32(0) != kPeSignature) throw EDamagedFile();
  const uint16_t magic = header.U16(kPeHeader);
  if (magic != kMagic32 && magic != kMagic64) throw EDamagedFile();

  const uint64_t optional = start + kPeHeader;
  const size_t directories = magic == kMagic32 ? 96 : 112;
  const uint32_t directoryCount = Read(optional + directories - 4, 4).U32(0);
  if (directoryCount > kResourceDirectory) {
    resources_ = Read(optional + directories + kResourceDirectory * kDirectorySize, kDirectorySize).U32(0);
  }
  ReadSections(optional + header.U16(20), header.U16(6));
}

FileBytes PortableExecutable::Read(uint64_t position, size_t count) const {
  std::string bytes = file_(position, count);
  if (bytes.size() != count) throw EDamagedFile();
  return FileBytes(std::move(bytes));
}

void PortableExecutable::ReadSections(uint64_t position, size_t count) {
  constexpr size_t kMostSections = 96;  // more are not loaded
  count = std::min(count, kMostSections);
  const FileBytes table = Read(position, count * kSectionSize);
  for (size_t at = 0; at < table.Size(); at += kSectionSize)
    sections_.push_back({table.U32(at + 12), table.U32(at + 16), table.U32(at + 20)});
}

uint64_t PortableExecutable::PositionOf(uint32_t address) const {
  for (const Section& section : sections_) {
    if (address >= section.address && address - section.address < section.size)
      return uint64_t{section.position} + (address - section.address);
  }
  throw EDamagedFile();
}

std::vector<PortableExecutable::Entry> PortableExecutable::ReadFolder(uint32_t offset) const {
  constexpr size_t kHeader = 16, kMostEntries = 4096;
  const uint64_t start = PositionOf(resources_) + (offset & ~kIsFolder);
  const FileBytes header = Read(start, kHeader);
  const size_t count = std::min<size_t>(size_t{header.U16(12)} + header.U16(14), kMostEntries);
  const FileBytes table = Read(start + kHeader, count * kEntrySize);
  std::vector<Entry> entries;
  for (size_t at = 0; at < table.Size(); at += kEntrySize)
    entries.push_back({table.U32(at), table.U32(at + 4)});
  return entries;
}

std::string PortableExecutable::ReadData(uint32_t offset, size_t most) const {
  const FileBytes entry = Read(PositionOf(resources_) + offset, 8);
  return file_(PositionOf(entry.U32(0)), std::min<size_t>(entry.U32(4), most));
}

std::string PortableExecutable::FirstResource(uint32_t type, size_t most) const {
  if (resources_ == 0) return {};
  uint32_t offset = kIsFolder;
  for (size_t level = 0; level < kFolderLevels && (offset & kIsFolder) != 0; ++level) {
    const std::vector<Entry> entries = ReadFolder(offset);
    const auto wanted = level == 0 ? std::ranges::find(entries, type, &Entry::id) : entries.begin();
    if (wanted == entries.end()) return {};
    offset = wanted->offset;
  }
  return (offset & kIsFolder) != 0 ? std::string() : ReadData(offset, most);
}
