#include "support/RunTable.h"
#include "textini/VekWriteToTextFileAction.h"

namespace {

const std::string kFile = "FileName=%D%\\a|NewContent=", kCreate = "CreateIfNotExists=True|" + kFile;
const std::string kStart = "WriteToPosition=toStart|" + kFile, kEnd = "WriteToPosition=toEnd|" + kFile;
const std::string kUpdated = "File updated: %D%\\a", kFailed = "File edit failed: ";

// clang-format off
const RunCase kRuns[] = {
    {"ANewFile", kCreate + "text", "", true, kUpdated, "a=text\r\n"},
    {"ANewFileAtItsEnd", "WriteToPosition=toEnd|" + kCreate + "text", "", true, kUpdated, "a=text\r\n"},
    {"AnEmptyFile", kStart + "text", "a=", true, kUpdated, "a=text\r\n"},
    {"AtTheStart", kStart + "text", "a=a\r\nb\r\n", true, kUpdated, "a=text\r\na\r\nb\r\n"},
    {"AtTheEnd", kEnd + "text", "a=a\r\nb\r\n", true, kUpdated, "a=a\r\nb\r\ntext\r\n"},
    {"NoLineBreakAtTheEnd", kEnd + "text", "a=a\nb\rc", true, kUpdated, "a=a\r\nb\r\nc\r\ntext\r\n"},
    {"AnEmptyLineAtTheEnd", kEnd + "text", "a=a\r\n\r\n", true, kUpdated, "a=a\r\n\r\ntext\r\n"},
    {"TwoLines", kStart + "x\ny", "a=a", true, kUpdated, "a=x\r\ny\r\na\r\n"},
    {"ThreeLines", kEnd + "x\r\ny\rz", "a=a", true, kUpdated, "a=a\r\nx\r\ny\r\nz\r\n"},
    {"ALineWithItsBreak", kEnd + "x\r\n", "a=a", true, kUpdated, "a=a\r\nx\r\n\r\n"},
    {"NoTextAtTheStart", kStart, "a=a", true, kUpdated, "a=\r\na\r\n"},
    {"NoTextAtTheEnd", kEnd, "a=a", true, kUpdated, "a=a\r\n\r\n"},
    {"BytesThatAreNoText", kEnd + " \xC3\xA4 ", "a=\xFF", true, kUpdated, "a=\xFF\r\n~\xC3\xA4~\r\n"},
    {"Expanded", "$FULL=two|" + kEnd + "%FULL%", "a=one\r\n", true, kUpdated, "a=one\r\ntwo\r\n"},
    {"AMissingFile", kFile + "%NO_SUCH_VARIABLE%", "", false, "ERROR - File doesn't exist: %D%\\a", ""},
    {"AMissingFolder", "CreateIfNotExists=True|FileName=%D%\\no\\a", "", false, kFailed + "{3}", ""},
    {"ReadOnly", kFile + "new", "!a=kept", false, kFailed + "{5}", "!a=kept"},
    {"AFolder", kCreate + "new", "a/x=x", false, kFailed + "{5}", "a/x=x"},
    {"Held", kFile + "new", "^a=kept", false, kFailed + "{32}", "a=kept"},
    {"AnUnknownName", "FileName=%X%", "", false, "", "", "", "FileName: " + kUnknownX},
    {"ABlankName", "FileName=", "", false, "", "", "", "FileName: the text is blank"},
    {"UnknownContents", kFile + "%X%", "a=old", false, "", "a=old", "", "Content: " + kUnknownX},
};
// clang-format on

TEST(WriteToTextFile, Runs) { ExpectRuns<TVekWriteToTextFileAction>(kRuns); }

}  // namespace
