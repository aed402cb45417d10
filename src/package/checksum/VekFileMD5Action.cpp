#include "checksum/VekFileMD5Action.h"

#include "checksum/HashAlgMD5_U.h"

namespace {

constexpr ChecksumWords kWords{"MD5", "MD5", "Compare to MD5", SameText};

}  // namespace

const ActionClass TCustomVekFileMD5Action::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekFileMD5Action",
    .actionName = "Calculate File MD5",
    .helpTopicID = 3300,
    .quickHelpFilename = "Plugins\\FileMD5.html",
};

const ChecksumWords& TCustomVekFileMD5Action::Words() const { return kWords; }

bool TCustomVekFileMD5Action::Compute(const std::string& fileName, bool /*isSecond*/, std::string& checksum) {
  const THashAlgMD5 algorithm(GetPlatform(), [this] { return StopSignalled(); });
  THashArray digest;
  THashAlg::ClearHash(digest);
  if (!algorithm.HashFile(fileName, digest)) {
    SendMessage("Hash of file " + fileName + " failed");
    return false;
  }
  checksum = algorithm.HashToDisplay(digest);
  return true;
}
