#include "support/SystemText.h"

#include "platform/CreatePlatform.h"
#include "platform/ErrorTexts.h"

std::string SystemText(Win32Error code) {
  return CreatePlatform([](char) { return std::nullopt; })->Get().errorTexts->Text(code);
}
