#include "platform/CopyBytes.h"

#include <algorithm>
#include <vector>

SysResult CopyBytes(class OpenFile& source, class OpenFile& target, uint64_t most, uint64_t& count) {
  constexpr uint64_t kBuffer = uint64_t{256} << 10;
  count = 0;
  std::vector<char> buffer(static_cast<size_t>(std::min(most, kBuffer)));
  while (count < most) {
    const uint64_t room = std::min<uint64_t>(buffer.size(), most - count);
    size_t got = 0;
    const SysResult read = source.Read(std::span(buffer).first(static_cast<size_t>(room)), got);
    if (!read || got == 0) return read;
    if (const SysResult written = target.Write({buffer.data(), got}); !written) return written;
    count += got;
  }
  return {};
}
