#include "gmock/gmock.h"

#include "checksum/VekFileCRCAction.h"
#include "checksum/VekFileMD5Action.h"
#include "support/RunTable.h"

namespace {

const std::string kFile = "FileName=%D%\\file|VekVariable=SUM|", kHeld = "file=123456789 ^same=123456789";
const std::string kToFile = kFile + "FailIfDiffToFile=True|CompareToFile=%D%\\";
const std::string kToCRC = kFile + "FailIfDiffToCRC=True|CompareToCRC=";
const std::string kToMD5 = kFile + "FailIfDiffToMD5=True|CompareToMD5=";
const std::string kDisk = "file=123456789 other= same=123456789",
                  kAfterHeld = "file=123456789 same=123456789";
const std::string kCRC = "CRC32 for file is $CBF43926", kCRCDiffers = kCRC + "|CRC don't match|";
const std::string kMD5 = "MD5 for file is 25F9E794323B453885F5181F1B624D0B",
                  kMD5Differs = kMD5 + "|MD5 don't match|";

// Stored before anything is compared.
const std::string kCRCStored = "$SUM=String $CBF43926",
                  kMD5Stored = "$SUM=String 25F9E794323B453885F5181F1B624D0B";

// clang-format off
const RunCase kCRCRuns[] = {
    {"Alone", kFile, kDisk, true, kCRC, kDisk, kCRCStored},
    {"TheSameFile", kToFile + "same", kDisk, true, kCRC + "|CRC matches file: same", kDisk, kCRCStored},
    {"AnotherFile", kToFile + "other", kDisk, false, kCRCDiffers + "File 2 CRC: $00000000", kDisk, kCRCStored},
    {"NoFile", kToFile + "missing", kDisk, false, kCRC + "|ERROR - File missing: %D%\\missing", kDisk, kCRCStored},
    {"TheSameValue", kToCRC + "$CBF43926", kDisk, true, kCRC + "|CRC matches.", kDisk, kCRCStored},
    {"ItsOtherCase", kToCRC + "$cbf43926", kDisk, false, kCRCDiffers + "Compare to CRC: $cbf43926", kDisk, kCRCStored},
    {"WithoutItsMark", kToCRC + "CBF43926", kDisk, false, kCRCDiffers + "Compare to CRC: CBF43926", kDisk, kCRCStored},
    {"FileAndValue", kToFile + "same|" + kToCRC + "x", kDisk, false,
     kCRC + "|CRC matches file: same|CRC don't match|Compare to CRC: x", kDisk, kCRCStored},
    {"TheFileDecidesFirst", kToFile + "other|" + kToCRC + "$CBF43926", kDisk, false, kCRCDiffers + "File 2 CRC: $00000000", kDisk, kCRCStored},
    {"TheFileIsHeld", "FileName=%D%\\file", "^file=1", false, "Error getting crc32 : {32}", "file=1"},
    {"TheOtherIsHeld", kToFile + "same", kHeld, false, kCRC + "|Error getting crc32 for file2 : {32}", kAfterHeld},
    {"ABlankName", "", "", false, "", "", "", "FileName: the text is blank"},
    {"ABlankValue", kToCRC, kDisk, false, kCRC, kDisk, kCRCStored, "Compare to CRC: the text is blank"},
    {"ABlankFile", kFile + "FailIfDiffToFile=True", kDisk, false, kCRC, kDisk, kCRCStored, "Compare to File: the text is blank"},
};

const RunCase kMD5Runs[] = {
    {"TheSameFile", kToFile + "same", kDisk, true, kMD5 + "|MD5 matches file: same", kDisk, kMD5Stored},
    {"AnotherFile", kToFile + "other", kDisk, false, kMD5Differs + "File 2 MD5: D41D8CD98F00B204E9800998ECF8427E", kDisk, kMD5Stored},
    {"AnyCase", kToMD5 + "25f9e794323b453885f5181f1b624d0b", kDisk, true, kMD5 + "|MD5 matches.", kDisk, kMD5Stored},
    {"FileAndValue", kToFile + "same|" + kToMD5 + "x", kDisk, false,
     kMD5 + "|MD5 matches file: same|MD5 don't match|Compare to MD5: x", kDisk, kMD5Stored},
    {"TheFileIsHeld", "FileName=%D%\\file", "^file=1", false, "Hash of file %D%\\file failed", "file=1"},
    {"TheOtherIsHeld", kToFile + "same", kHeld, false, kMD5 + "|Hash of file %D%\\same failed", kAfterHeld},
};
// clang-format on

TEST(FileChecksum, CRCIsStoredAndComparedAsItStands) { ExpectRuns<TVekFileCRCAction>(kCRCRuns); }
TEST(FileChecksum, MD5ComparesWithoutRegardToCase) { ExpectRuns<TVekFileMD5Action>(kMD5Runs); }

TEST(FileChecksum, AnEmptyVariableNameStoresNothing) {
  ActionFixture fixture;
  fixture.folder.Write("file");
  const auto action = fixture.Make<TVekFileMD5Action>();
  action->FileName = fixture.folder.Path("file");
  EXPECT_TRUE(fixture.Run(*action));
  EXPECT_THAT(fixture.Events().Of("variable"), testing::IsEmpty());
}

}  // namespace
