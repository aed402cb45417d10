#include "fileops/VekConcatFilesAction.h"
#include "support/RunTable.h"

namespace {

/// What is set; names are files of the folder, but for those that are empty, blank or expressions.
std::string On(const StringList& names, const std::string& mode) {
  const auto path = [](const std::string& name) {
    return name.empty() || name[0] == ' ' || name[0] == '%' ? name : "%D%\\" + name;
  };
  return "SourceFile1=" + path(names[0]) + "|SourceFile2=" + path(names[1]) +
         "|DestinationFile=" + path(names[2]) + "|DestExistsAction=" + mode;
}

const std::string kFail = "FailIfExists", kAppend = "AppendIfExists", kOverwrite = "OverwriteIfExists";
const std::string kA = "a=aa ", kB = "b=b ", kNew = "new=", kOld = "old=old", kSources = kA + kB;
const std::string kOne = "Copied 2 bytes from source file 1|", kDone = "Concatenation done.";
const std::string kBoth = kOne + "Copied 1 bytes from source file 2|" + kDone;
const std::string kBlank2 =
    "Source 2 filename is blank. It can only be blank if appending to an existing file.";

// clang-format off
const RunCase kRuns[] = {
    {"New", On({"a", "b", "new"}, kFail), kSources, true, kBoth, kSources + "new=aab"},
    {"NewToAppend", On({"a", "b", "new"}, kAppend), kSources, true, kBoth, kSources + "new=aab"},
    {"NewToOverwrite", On({"a", "b", "new"}, kOverwrite), kSources, true, kBoth, kSources + "new=aab"},
    {"Append", On({"a", "b", "old"}, kAppend), kSources + kOld, true, kBoth, kSources + "old=oldaab"},
    {"AppendOne", On({"a", "", "old"}, kAppend), kA + kOld, true, kOne + kDone, kA + "old=oldaa"},
    {"AppendOneToNothing", On({"a", "", "new"}, kAppend), kA, true, kOne + kDone, kA + "new=aa"},
    {"Overwrite", On({"a", "b", "old"}, kOverwrite), kSources + kOld, true, kBoth, kSources + "old=aab"},
    {"AnEmptyFile", On({"a", "e", "old"}, kOverwrite), kA + "e= old=older", true,
     kOne + "Copied 0 bytes from source file 2|" + kDone, kA + "e= old=aa"},
    {"OneFileTwice", On({"a", "a", "new"}, kFail), kA, true, kOne + "Copied 2 bytes from source file 2|" + kDone, kA + "new=aaaa"},
    // Everything is wrong from some point on: what is said shows the order of the checks.
    {"NoSource", On({"", "x", ""}, kFail), "", false, "Source 1 filename is blank.", ""},
    {"AMissingSource", On({"x", "x", ""}, kFail), "", false, "Source 1 file does not exist : %D%\\x", ""},
    {"AFolderAsSource", On({"f", "x", ""}, kFail), "f/", false, "Source 1 file does not exist : %D%\\f", "f/"},
    {"NoSecondSource", On({"a", "", "old"}, kFail), kA + kOld, false, kBlank2, kA + kOld},
    {"NoSecondSourceToOverwrite", On({"a", "", "old"}, kOverwrite), kA + kOld, false, kBlank2, kA + kOld},
    {"AMissingSecondSource", On({"a", "x", ""}, kFail), kA, false, "Source 2 file does not exist : %D%\\x", kA},
    {"ABlankSecondSource", On({"a", " ", ""}, kAppend), kA, false, "Source 2 file does not exist :  ", kA},
    {"NoDestination", On({"a", "b", ""}, kFail), kSources, false, "Destination filename is blank.", kSources},
    {"TheDestinationExists", On({"a", "b", "old"}, kFail), kSources + kOld, false, "Destination exists.", kSources + kOld},
    {"ReadOnly", On({"a", "b", "r"}, kOverwrite), kSources + "!r=r", false, "Unable to overwrite destination file : %D%\\r", kSources + "!r=r"},
    {"ReadOnlyToAppend", On({"a", "b", "r"}, kAppend), kSources + "!r=r", false, "Failed to open %D%\\r|Error: {5}", kSources + "!r=r"},
    {"AFolder", On({"a", "b", "f"}, kOverwrite), kSources + "f/", false, "Failed to create %D%\\f|Error: {5}", kSources + "f/"},
    {"NoFolder", On({"a", "b", "x\\new"}, kFail), kSources, false, "Failed to create %D%\\x\\new|Error: {3}", kSources},
    {"TheDestinationIsASource", On({"a", "b", "a"}, kOverwrite), kSources, false, "Failed to open %D%\\a|Error: {32}", kSources},
    {"TheDestinationIsTheSecond", On({"a", "b", "b"}, kOverwrite), kSources, false, "Failed to open %D%\\b|Error: {32}", kSources},
    {"ASourceAppendedTo", On({"a", "b", "a"}, kAppend), kSources, false, "Failed to open %D%\\a|Error: {32}", kSources},
    {"AnUnknownSource", On({"%X%", "x", ""}, kFail), "", false, "Error expanding Source 1 filename", "", "",
     "Source filename: " + kUnknownX},
    {"AnUnknownSecondSource", On({"a", "%X%", ""}, kFail), kA, false, "Error expanding Source 2 filename", kA, "",
     "Source filename: " + kUnknownX},
    {"AnUnknownDestination", On({"a", "b", "%X%"}, kFail), kSources, false, "Error expanding Destination filename", kSources, "",
     "Destination filename: " + kUnknownX},
    // What fails on the way leaves everything as it was.
    {"ASourceIsHeld", On({"a", "b", "old"}, kAppend), kA + "^b=b " + kOld, false, "Failed to open %D%\\b|Error: {32}", kSources + kOld},
    {"ASourceIsHeldBeforeOverwriting", On({"a", "b", "old"}, kOverwrite), kA + "^b=b " + kOld, false, "Failed to open %D%\\b|Error: {32}", kSources + kOld},
    {"AppendingFails", On({"a", "b", "old"}, kAppend), kSources + kOld, false,
     kOne + "Failed to copy %D%\\b to %D%\\old|Error: {31}", kSources + kOld, "", "", "file.Read b 31"},
    {"OverwritingFails", On({"a", "b", "old"}, kOverwrite), kSources + kOld, false,
     kOne + "Failed to copy %D%\\b to %D%\\old|Error: {31}", kSources + kOld, "", "", "file.Read b 31"},
    {"WritingANewOneFails", On({"a", "b", "new"}, kFail), kSources, false,
     kOne + "Failed to copy %D%\\b to %D%\\new|Error: {31}", kSources, "", "", "file.Read b 31"},
};
// clang-format on

TEST(Concat, Runs) { ExpectRuns<TConcatAction>(kRuns); }

TEST(Concat, AStoppedBuildLeavesEverythingAsItWas) {
  ActionFixture fixture;
  fixture.fault = [&](const PlatformCall& call) -> std::optional<SysResult> {
    if (call.operation == "file.Read" && NamePart(call.path) == "b") fixture.Context().Stop().RequestStop();
    return {};
  };
  const auto action = fixture.Make<TConcatAction>();
  ExpectRun(fixture, *action,
            {"Stopped", On({"a", "b", "old"}, kAppend), kSources + kOld, false,
             "Copied 2 bytes from source file 1", kSources + kOld});
}

}  // namespace
