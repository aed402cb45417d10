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
      Published<&TCustomVekFileMD5Action::FileName>("FileName", TextRole::File),
      Published<&TCustomVekFileMD5Action::VekVariable>("VekVariable", TextRole::Variable),
      Published<&TCustomVekFileMD5Action::FailIfDiffToFile>("FailIfDiffToFile"),
      Published<&TCustomVekFileMD5Action::CompareToFile>("CompareToFile", TextRole::File),
      Published<&TCustomVekFileMD5Action::FailIfDiffToValue>("FailIfDiffToMD5"),
      Published<&TCustomVekFileMD5Action::CompareToValue>("CompareToMD5"),
  };
};
