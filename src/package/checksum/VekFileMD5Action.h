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
  static constexpr auto kPublished = ChecksumRows({
      .variableMeaning = "The variable that receives the checksum, as 32 hexadecimal digits; "
                         "blank for none",
      .failIfDiff = "FailIfDiffToMD5",
      .compareTo = "CompareToMD5",
      .compareMeaning = "The expected checksum, in upper or lower case",
  });
};
