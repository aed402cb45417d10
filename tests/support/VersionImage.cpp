#include "support/VersionImage.h"

#include <algorithm>

#include "base/Text.h"

namespace {

constexpr size_t kPeHeader = 64, kSectionPosition = 0x200, kSectionAddress = 0x1000, kDataOffset = 88;

void Put(std::string& bytes, uint32_t number, size_t size) {
  for (size_t i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i));
}

void Pad(std::string& bytes, size_t size) { bytes.resize(std::max(bytes.size(), size), '\0'); }
void Align(std::string& bytes) { Pad(bytes, (bytes.size() + 3) & ~size_t{3}); }

std::string Utf16(const std::string& text) {
  std::string bytes;
  for (size_t i = 0; i < text.size();) Put(bytes, NextCodePoint(text, i), 2);
  Put(bytes, 0, 2);
  return bytes;
}

/// A block of the resource; the length of a text counts its characters.
std::string Block(const std::string& key, bool isText, const std::string& value,
                  const std::string& children) {
  std::string bytes(2, '\0');
  Put(bytes, static_cast<uint32_t>(isText ? value.size() / 2 : value.size()), 2);
  Put(bytes, isText ? 1 : 0, 2);
  bytes += Utf16(key);
  Align(bytes);
  bytes += value;
  if (!children.empty()) Align(bytes);
  bytes += children;
  std::string length;
  Put(length, static_cast<uint32_t>(bytes.size()), 2);
  bytes.replace(0, 2, length);
  return bytes;
}

void AddChild(std::string& children, const std::string& child) {
  Align(children);
  children += child;
}

std::string FixedInfo(const VersionImage& image) {
  std::string bytes;
  Put(bytes, 0xFEEF04BD, 4);
  Put(bytes, 0x10000, 4);
  for (const uint16_t* numbers : {image.file, image.product}) {
    for (const size_t i : {1, 0, 3, 2}) Put(bytes, numbers[i], 2);
  }
  Pad(bytes, 52);
  return bytes;
}

std::string Resource(const VersionImage& image) {
  std::string tables, children;
  for (const auto& [key, strings] : image.tables) {
    std::string entries;
    for (const auto& [name, text] : strings) AddChild(entries, Block(name, true, Utf16(text), ""));
    AddChild(tables, Block(key, true, "", entries));
  }
  AddChild(children, Block("StringFileInfo", true, "", tables));
  if (!image.translation.empty()) {
    std::string list;
    for (const size_t at : {0, 4})
      Put(list, static_cast<uint32_t>(std::stoul(image.translation.substr(at, 4), nullptr, 16)), 2);
    AddChild(children, Block("VarFileInfo", true, "", Block("Translation", false, list, "")));
  }
  return Block("VS_VERSION_INFO", false, FixedInfo(image), children);
}

/// Three folders of one entry each, and where the data is.
std::string ResourceSection(const VersionImage& image) {
  const std::string data = Resource(image);
  std::string bytes;
  const uint32_t ids[] = {image.resourceType, 1, 0x409};
  for (uint32_t level = 0; level < 3; ++level) {
    bytes.append(14, '\0');
    Put(bytes, 1, 2);
    Put(bytes, ids[level], 4);
    Put(bytes, level < 2 ? 0x80000000 | (level + 1) * 24 : 72, 4);
  }
  Put(bytes, kSectionAddress + kDataOffset, 4);
  Put(bytes, static_cast<uint32_t>(data.size()), 4);
  bytes.append(8, '\0');
  return bytes + data;
}

}  // namespace

std::string VersionImage::Bytes() const {
  const std::string section = ResourceSection(*this);
  const size_t directories = is64Bit ? 112 : 96, optionalSize = directories + 16 * 8;
  std::string bytes = "MZ";
  Pad(bytes, 0x3C);
  Put(bytes, kPeHeader, 4);
  bytes.append("PE\0\0", 4);
  Put(bytes, is64Bit ? 0x8664 : 0x14C, 2);
  Put(bytes, 1, 2);
  bytes.append(12, '\0');
  Put(bytes, static_cast<uint32_t>(optionalSize), 2);
  Put(bytes, 0x2022, 2);
  const size_t optional = bytes.size();
  Put(bytes, is64Bit ? 0x20B : 0x10B, 2);
  Pad(bytes, optional + directories - 4);
  Put(bytes, 16, 4);
  bytes.append(16, '\0');
  Put(bytes, kSectionAddress, 4);
  Put(bytes, static_cast<uint32_t>(section.size()), 4);
  Pad(bytes, optional + optionalSize);
  bytes.append(".rsrc\0\0\0", 8);
  Put(bytes, static_cast<uint32_t>(section.size()), 4);
  Put(bytes, kSectionAddress, 4);
  Put(bytes, static_cast<uint32_t>(section.size()), 4);
  Put(bytes, kSectionPosition, 4);
  Pad(bytes, kSectionPosition);
  return bytes + section;
}
