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
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekFileCRCAction::FileName>("FileName", TextRole::File)
          .Means("The file to compute the checksum of"),
      Published<&TCustomVekFileCRCAction::VekVariable>("VekVariable", TextRole::Variable)
          .Means(
              "The variable that receives the checksum, as $ and eight hexadecimal digits; blank for none"),
      Published<&TCustomVekFileCRCAction::FailIfDiffToFile>("FailIfDiffToFile")
          .Means("Fail when the checksum of CompareToFile is another"),
      Published<&TCustomVekFileCRCAction::CompareToFile>("CompareToFile", TextRole::File)
          .Means("The file to compare with"),
      Published<&TCustomVekFileCRCAction::FailIfDiffToValue>("FailIfDiffToCRC")
          .Means("Fail when the checksum is not the expected one"),
      Published<&TCustomVekFileCRCAction::CompareToValue>("CompareToCRC")
          .Means("The expected checksum, with its $ and in upper case"),
  };
};
