#include "checksum/Vekfilechecksum.h"

#include "base/WindowsPath.h"
#include "platform/Entries.h"
#include "platform/Platform.h"

bool TCustomFileChecksumAction::Validate(IVekActionValidationError& errors) {
  if (!FileName.empty()) return true;
  errors.AddError("File Name", "Filename has not been set");
  return false;
}

bool TCustomFileChecksumAction::Execute() {
  std::string fileName, checksum;
  if (!FindFile("FileName", FileName, fileName) || !Compute(fileName, false, checksum)) return false;
  SendMessage(
      std::string(Words().ofFile).append(" for ").append(NamePart(fileName)).append(" is ").append(checksum));
  if (!VekVariable.empty()) SetVariable(VekVariable, checksum);
  if (FailIfDiffToFile && !CompareWithFile(checksum)) return false;
  return !FailIfDiffToValue || CompareWithValue(checksum);
}

bool TCustomFileChecksumAction::FindFile(std::string_view title, const std::string& property,
                                         std::string& fileName) {
  if (!TryExpandExpression(title, property, fileName, true)) return false;
  const bool exists = GetPlatform().entries->FileExists(fileName);
  if (!exists) SendMessage("ERROR - File missing: " + fileName);
  return exists;
}

bool TCustomFileChecksumAction::CompareWithFile(const std::string& checksum) {
  const std::string name(Words().compared);
  std::string fileName, second;
  if (!FindFile("Compare to File", CompareToFile, fileName) || !Compute(fileName, true, second)) return false;
  if (!Words().areEqual(checksum, second)) {
    SendMessage(name + " don't match");
    SendMessage("File 2 " + name + ": " + second);
    return false;
  }
  SendMessage((name + " matches file: ").append(NamePart(fileName)));
  return true;
}

bool TCustomFileChecksumAction::CompareWithValue(const std::string& checksum) {
  const std::string name(Words().compared);
  std::string expected;
  if (!TryExpandExpression(Words().compareTitle, CompareToValue, expected, true)) return false;
  if (!Words().areEqual(checksum, expected)) {
    SendMessage(name + " don't match");
    SendMessage("Compare to " + name + ": " + expected);
    return false;
  }
  SendMessage(name + " matches.");
  return true;
}
