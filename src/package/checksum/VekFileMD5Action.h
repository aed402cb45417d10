#pragma once

#include "checksum/Vekfilechecksum.h"

/// "Calculate File MD5": the MD5 of a file.
class TCustomVekFileMD5Action : public TCustomFileChecksumAction {
 public:
  static const ActionClass kClass;
  using TCustomFileChecksumAction::TCustomFileChecksumAction;

 protected:
  const ChecksumWords& Words() const override;
  bool Compute(const std::string& fileName, bool isSecond, std::string& checksum) override;
};

class TVekFileMD5Action final : public PublishedAction<TVekFileMD5Action, TCustomVekFileMD5Action> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekFileMD5Action";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekFileMD5Action::FileName>("FileName", TextRole::File)
          .Means("The file to compute the checksum of"),
      Published<&TCustomVekFileMD5Action::VekVariable>("VekVariable", TextRole::Variable)
          .Means("The variable that receives the checksum, as 32 hexadecimal digits; blank for none"),
      Published<&TCustomVekFileMD5Action::FailIfDiffToFile>("FailIfDiffToFile")
          .Means("Fail when the checksum of CompareToFile is another"),
      Published<&TCustomVekFileMD5Action::CompareToFile>("CompareToFile", TextRole::File)
          .Means("The file to compare with"),
      Published<&TCustomVekFileMD5Action::FailIfDiffToValue>("FailIfDiffToMD5")
          .Means("Fail when the checksum is not the expected one"),
      Published<&TCustomVekFileMD5Action::CompareToValue>("CompareToMD5")
          .Means("The expected checksum, in upper or lower case"),
  };
};
