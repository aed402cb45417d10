#include "checksum/Vekfileblocks.h"

#include <memory>
#include <vector>

#include "platform/Contents.h"
#include "platform/Platform.h"

SysResult ReadBlocks(const Platform& platform, std::string_view fileName, const StopQuestion& stopSignalled,
                     const std::function<void(std::string_view block)>& take) {
  constexpr size_t kBlock = size_t{128} << 10;  // stays in the processor's cache between reading and use
  std::unique_ptr<OpenFile> file;
  const SysResult opened = platform.contents->Open(fileName, OpenMode::Read, ShareMode::DenyWrite, file);
  if (!opened) return opened;
  std::vector<char> buffer(kBlock);
  while (!stopSignalled()) {
    size_t count = 0;
    const SysResult read = file->Read(buffer, count);
    if (!read || count == 0) return read;
    take({buffer.data(), count});
  }
  return SysResult::Failure(Win32Error::RequestAborted);
}
