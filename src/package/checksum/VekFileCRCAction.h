#pragma once

#include "checksum/Vekfilechecksum.h"

/// "Calculate File CRC32": the CRC-32 of a file.
class TCustomVekFileCRCAction : public TCustomFileChecksumAction {
 public:
  static const ActionClass kClass;
  using TCustomFileChecksumAction::TCustomFileChecksumAction;

 protected:
  const ChecksumWords& Words() const override;
  bool Compute(const std::string& fileName, bool isSecond, std::string& checksum) override;
};

class TVekFileCRCAction final : public PublishedAction<TVekFileCRCAction, TCustomVekFileCRCAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekFileCRCAction";
  static constexpr auto kPublished = ChecksumRows({
      .variableMeaning = "The variable that receives the checksum, as $ and eight hexadecimal digits; "
                         "blank for none",
      .failIfDiff = "FailIfDiffToCRC",
      .compareTo = "CompareToCRC",
      .compareMeaning = "The expected checksum, with its $ and in upper case",
  });
};
