#pragma once

#include <array>
#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"

/// What a kind of checksum is called, and how its texts compare.
struct ChecksumWords {
  std::string_view ofFile;        // where a file's is logged
  std::string_view compared;      // where two are compared
  std::string_view compareTitle;  // of the property that holds the expected one
  bool (*areEqual)(std::string_view a, std::string_view b);
};

/// What the rows of a kind's properties say that others do not.
struct ChecksumRowTexts {
  std::string_view variableMeaning;
  std::string_view failIfDiff;                 // the property that has another value fail
  std::string_view compareTo, compareMeaning;  // the one that holds the expected value
};

/// Base of the actions that compute a file's checksum: it is logged, stored in a variable, and compared with
/// another file's and with an expected text.
class TCustomFileChecksumAction : public TVekAction {
 public:
  using TVekAction::TVekAction;

  std::string FileName;
  std::string VekVariable;  // empty: none
  bool FailIfDiffToFile = false;
  std::string CompareToFile;
  bool FailIfDiffToValue = false;  // each kind publishes the last two under names of its own
  std::string CompareToValue;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

  virtual const ChecksumWords& Words() const = 0;

  /// Computes the checksum of the file, or of the second one; false when that failed, which is then logged.
  virtual bool Compute(const std::string& fileName, bool isSecond, std::string& checksum) = 0;

 private:
  bool FindFile(std::string_view title, const std::string& property, std::string& fileName);
  bool CompareWithFile(const std::string& checksum);
  bool CompareWithValue(const std::string& checksum);
};

consteval std::array<PropertyRow, 6> ChecksumRows(const ChecksumRowTexts& texts) {
  using Action = TCustomFileChecksumAction;
  return {
      Published<&Action::FileName>("FileName", TextRole::File).Means("The file to compute the checksum of"),
      Published<&Action::VekVariable>("VekVariable", TextRole::Variable).Means(texts.variableMeaning),
      Published<&Action::FailIfDiffToFile>("FailIfDiffToFile")
          .Means("Fail when the checksum of CompareToFile is another"),
      Published<&Action::CompareToFile>("CompareToFile", TextRole::File).Means("The file to compare with"),
      Published<&Action::FailIfDiffToValue>(texts.failIfDiff)
          .Means("Fail when the checksum is not the expected one"),
      Published<&Action::CompareToValue>(texts.compareTo).Means(texts.compareMeaning),
  };
}
