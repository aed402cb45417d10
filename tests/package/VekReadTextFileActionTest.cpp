#include "support/RunTable.h"
#include "textini/VekReadTextFileAction.h"

namespace {

const std::string kFile = "FileName=%D%\\a|VekVariable=V|PutContentsInVar=True",
                  kEscaped = kFile + "|EscapeVariables=True";
const std::string kRead = "Reading file...|Done.",
                  kReadEscaped = "Reading file...|Escaping variables...|Done.";
const std::string kBytes("100%~%X%~%%\r\n\xFF$(X)\0$$(\n", 23),
    kEscapedBytes("100%%~%%X%%~%%%%\r\n\xFF$$(X)\0$$$(\n", 30);
const std::string kLines = "a=one\r\n\rfail\nlast";

// clang-format off
const RunCase kRuns[] = {
    {"IntoAVariable", kFile, "a=" + kBytes, true, kRead, "a=" + kBytes, "$V=String " + ReplaceAll(kBytes, "~", " ")},
    {"Escaped", kEscaped, "a=" + kBytes, true, kReadEscaped, "a=" + kBytes, "$V=String " + ReplaceAll(kEscapedBytes, "~", " ")},
    {"NoText", kFile, "a=", true, kRead, "a=", "$V=String "},
    {"TheScriptSeesEachLine",
     "FileName=%D%\\a|@OnReadLine=Vek.Log('[' + LineText + ']'); LineText = 'unused'; if (Action.FileName == '') throw 1;",
     kLines, true, "Reading file...|[one]|[]|[fail]|[last]|Done.", kLines},
    {"NobodyMindsWhatTheScriptThrows", "FileName=%D%\\a|@OnReadLine=if (LineText == 'fail') throw 'x';", kLines, true, kRead, kLines, "",
     "script OnReadLine: x"},
    {"NoFile", kFile, "", false, "ERROR - File does not exists: %D%\\a", ""},
    {"Held", kFile, "^a=held", false, "Reading file...|File read failed: %D%\\a: {32}", "a=held"},
};
// clang-format on

TEST(ReadTextFile, Runs) { ExpectRuns<TVekReadTextFileAction>(kRuns); }

}  // namespace
