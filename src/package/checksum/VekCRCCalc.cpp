#include "checksum/VekCRCCalc.h"

#include <cstdio>

#include "checksum/Vekcrcengine.h"
#include "coreapi/Vekerrors.h"
#include "platform/ErrorTexts.h"
#include "platform/Platform.h"

std::string GetCRC32(const Platform& platform, std::string_view fileName, const StopQuestion& stopSignalled) {
  uint32_t value = kCRCStart;
  const SysResult read = ReadBlocks(platform, fileName, stopSignalled,
                                    [&value](std::string_view block) { value = UpdateCRC32(value, block); });
  if (!read) throw EVekError(platform.errorTexts->Text(read.code));
  char text[16];
  std::snprintf(text, sizeof text, "$%08X", static_cast<unsigned>(~value));
  return text;
}
