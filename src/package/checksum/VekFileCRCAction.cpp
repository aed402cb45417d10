#include "checksum/VekFileCRCAction.h"

#include "checksum/VekCRCCalc.h"

namespace {

bool SameBytes(std::string_view a, std::string_view b) { return a == b; }

constexpr ChecksumWords kWords{"CRC32", "CRC", "Compare to CRC", SameBytes};

}  // namespace

const ActionClass TCustomVekFileCRCAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekFileCRCAction",
    .actionName = "Calculate File CRC32",
    .helpTopicID = 3290,
    .quickHelpFilename = "Plugins\\FileCRC.html",
};

const ChecksumWords& TCustomVekFileCRCAction::Words() const { return kWords; }

bool TCustomVekFileCRCAction::Compute(const std::string& fileName, bool isSecond, std::string& checksum) {
  try {
    checksum = GetCRC32(GetPlatform(), fileName, [this] { return StopSignalled(); });
    return true;
  } catch (const std::exception& error) {
    SendMessage(std::string(isSecond ? "Error getting crc32 for file2 : " : "Error getting crc32 : ") +
                error.what());
    return false;
  }
}
