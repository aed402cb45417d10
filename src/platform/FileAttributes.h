#pragma once

#include <cstdint>

/// File attribute bits as Windows numbers them; search masks use the same bits.
namespace FileAttribute {
inline constexpr uint32_t ReadOnly = 0x01;
inline constexpr uint32_t Hidden = 0x02;
inline constexpr uint32_t System = 0x04;
inline constexpr uint32_t VolumeId = 0x08;
inline constexpr uint32_t Directory = 0x10;
inline constexpr uint32_t Archive = 0x20;
inline constexpr uint32_t Normal = 0x80;
inline constexpr uint32_t ReparsePoint = 0x400;
inline constexpr uint32_t AnyFile = 0x3F;
}  // namespace FileAttribute
