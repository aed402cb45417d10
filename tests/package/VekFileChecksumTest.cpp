#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "checksum/VekFileCRCAction.h"
#include "checksum/VekFileMD5Action.h"
#include "support/ActionFixture.h"
#include "support/OsFixture.h"
#include "support/SystemText.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* kMD5 = "25F9E794323B453885F5181F1B624D0B";
constexpr const char* kMD5OfEmpty = "D41D8CD98F00B204E9800998ECF8427E";

/// The files "file" and "same" hold "123456789", "other" nothing.
struct FileChecksum : ActionFixture, testing::Test {
  FileChecksum() {
    folder.Write("file", "123456789");
    folder.Write("same", "123456789");
    folder.Write("other", "");
  }

  bool Run(TCustomFileChecksumAction& action, const char* compareToFile, const char* compareToValue) {
    action.FileName = folder.Path("file");
    action.VekVariable = "SUM";
    action.FailIfDiffToFile = compareToFile != nullptr;
    if (compareToFile) action.CompareToFile = folder.Path(compareToFile);
    action.FailIfDiffToValue = compareToValue != nullptr;
    if (compareToValue) action.CompareToValue = compareToValue;
    return ActionFixture::Run(action);
  }
};

struct ChecksumCase {
  const char *file, *value;  // null: not compared
  StringList lines;          // after the first; what fails ends in a line of two parts or a missing file
  bool result;
};

void Check(FileChecksum& test, TCustomFileChecksumAction& action, const ChecksumCase& wanted,
           const std::string& first, const std::string& checksum) {
  test.Context().SetVariable("SUM", std::string());
  EXPECT_EQ(test.Run(action, wanted.file, wanted.value), wanted.result);
  StringList lines = wanted.lines;
  lines.insert(lines.begin(), first);
  EXPECT_EQ(test.Lines(), lines);
  // Stored before anything is compared.
  EXPECT_EQ(std::get<std::string>(test.Context().GetVariableValue("SUM")), checksum);
}

TEST_F(FileChecksum, CRCIsStoredAndComparedAsItStands) {
  const ChecksumCase cases[] = {
      {nullptr, nullptr, {}, true},
      {"same", nullptr, {"CRC matches file: same"}, true},
      {"other", nullptr, {"CRC don't match", "File 2 CRC: $00000000"}, false},
      {"missing", nullptr, {"ERROR - File missing: " + folder.Path("missing")}, false},
      {nullptr, "$CBF43926", {"CRC matches."}, true},
      {nullptr, "$cbf43926", {"CRC don't match", "Compare to CRC: $cbf43926"}, false},
      {nullptr, "CBF43926", {"CRC don't match", "Compare to CRC: CBF43926"}, false},
      {"same", "x", {"CRC matches file: same", "CRC don't match", "Compare to CRC: x"}, false},
      {"other", "$CBF43926", {"CRC don't match", "File 2 CRC: $00000000"}, false},
  };
  const auto action = Make<TVekFileCRCAction>();
  for (const ChecksumCase& wanted : cases)
    Check(*this, *action, wanted, "CRC32 for file is $CBF43926", "$CBF43926");
}

TEST_F(FileChecksum, MD5ComparesWithoutRegardToCase) {
  const ChecksumCase cases[] = {
      {"same", nullptr, {"MD5 matches file: same"}, true},
      {"other", nullptr, {"MD5 don't match", std::string("File 2 MD5: ") + kMD5OfEmpty}, false},
      {nullptr, "25f9e794323b453885f5181f1b624d0b", {"MD5 matches."}, true},
      {"same", "x", {"MD5 matches file: same", "MD5 don't match", "Compare to MD5: x"}, false},
  };
  const auto action = Make<TVekFileMD5Action>();
  for (const ChecksumCase& wanted : cases)
    Check(*this, *action, wanted, std::string("MD5 for file is ") + kMD5, kMD5);
}

TEST_F(FileChecksum, AnEmptyVariableNameStoresNothing) {
  const auto action = Make<TVekFileMD5Action>();
  action->FileName = folder.Path("other");
  EXPECT_TRUE(ActionFixture::Run(*action));
  EXPECT_THAT(Events().events, testing::Not(testing::Contains(testing::StartsWith("variable"))));
}

TEST_F(FileChecksum, FilesThatCannotBeReadAreReported) {
  const auto crc = Make<TVekFileCRCAction>();
  const auto md5 = Make<TVekFileMD5Action>();
  const std::string reason = SystemText(Win32Error::SharingViolation);
  {
    const ExclusiveOpen held(folder.Path("same"));
    EXPECT_FALSE(Run(*crc, "same", nullptr));
    EXPECT_EQ(Lines().back(), "Error getting crc32 for file2 : " + reason);
    EXPECT_FALSE(Run(*md5, "same", nullptr));
    EXPECT_EQ(Lines().back(), "Hash of file " + folder.Path("same") + " failed");
  }
  const ExclusiveOpen held(folder.Path("file"));
  EXPECT_FALSE(Run(*crc, nullptr, nullptr));
  EXPECT_THAT(Lines(), ElementsAre("Error getting crc32 : " + reason));
  EXPECT_FALSE(Run(*md5, nullptr, nullptr));
  EXPECT_THAT(Lines(), ElementsAre("Hash of file " + folder.Path("file") + " failed"));
}

TEST_F(FileChecksum, ExpansionFailuresAreTheHostsToReport) {
  const auto action = Make<TVekFileCRCAction>();
  EXPECT_FALSE(ActionFixture::Run(*action));
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_THAT(Errors(), ElementsAre(testing::StartsWith("FileName: ")));
  EXPECT_FALSE(Run(*action, nullptr, ""));
  EXPECT_THAT(Errors(), ElementsAre(testing::StartsWith("Compare to CRC: ")));
  action->CompareToFile = "";
  action->FailIfDiffToFile = true;
  EXPECT_FALSE(ActionFixture::Run(*action));
  EXPECT_THAT(Errors(), ElementsAre(testing::StartsWith("Compare to File: ")));
}

}  // namespace
