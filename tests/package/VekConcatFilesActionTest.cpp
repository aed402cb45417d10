#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "fileops/VekConcatFilesAction.h"
#include "support/ActionFixture.h"
#include "support/DiskTable.h"
#include "support/OsFixture.h"

namespace {

constexpr auto kFail = TDestExistsAct::FailIfExists;
constexpr auto kAppend = TDestExistsAct::AppendIfExists;
constexpr auto kOverwrite = TDestExistsAct::OverwriteIfExists;

struct Concat : ActionFixture, testing::Test {
  /// A name that begins with '=' is taken as it stands, the others are files of the folder.
  std::string Name(const std::string& name) const {
    return name.empty() || name[0] == '=' ? name.substr(!name.empty()) : folder.WindowsPath() + "\\" + name;
  }
  bool Run(const StringList& names, TDestExistsAct mode) {
    action->SourceFile1 = Name(names[0]);
    action->SourceFile2 = Name(names[1]);
    action->DestinationFile = Name(names[2]);
    action->DestExistsAction = mode;
    return ActionFixture::Run(*action);
  }

  std::unique_ptr<TConcatAction> action = Make<TConcatAction>();
  DiskTable disk{folder, GetPlatform()};
};

struct ConcatCase {
  StringList names;
  TDestExistsAct mode;
  StringList lines;
  const char* changed;  // the one line of the disk that is other than before; null: none
};

const ConcatCase kDone[] = {
    {{"a", "b", "new"}, kFail, {"2", "1"}, "new=aab"},
    {{"a", "b", "new"}, kAppend, {"2", "1"}, "new=aab"},
    {{"a", "b", "new"}, kOverwrite, {"2", "1"}, "new=aab"},
    {{"a", "b", "old"}, kAppend, {"2", "1"}, "old=oldaab"},
    {{"a", "", "old"}, kAppend, {"2"}, "old=oldaa"},
    {{"a", "", "new"}, kAppend, {"2"}, "new=aa"},
    {{"a", "b", "old"}, kOverwrite, {"2", "1"}, "old=aab"},
    {{"a", "empty", "old"}, kOverwrite, {"2", "0"}, "old=aa"},
    {{"a", "a", "new"}, kFail, {"2", "2"}, "new=aaaa"},
};

const char* const kBlank2 =
    "Source 2 filename is blank. It can only be blank if appending to an existing file.";

// Everything is wrong from some point on: what is said shows the order of the checks.
const ConcatCase kRefused[] = {
    {{"", "x", ""}, kFail, {"Source 1 filename is blank."}, nullptr},
    {{"x", "x", ""}, kFail, {"Source 1 file does not exist : %D%\\x"}, nullptr},
    {{"folder", "x", ""}, kFail, {"Source 1 file does not exist : %D%\\folder"}, nullptr},
    {{"a", "", "old"}, kFail, {kBlank2}, nullptr},
    {{"a", "", "old"}, kOverwrite, {kBlank2}, nullptr},
    {{"a", "x", ""}, kFail, {"Source 2 file does not exist : %D%\\x"}, nullptr},
    {{"a", "= ", ""}, kAppend, {"Source 2 file does not exist :  "}, nullptr},
    {{"a", "b", ""}, kFail, {"Destination filename is blank."}, nullptr},
    {{"a", "b", "old"}, kFail, {"Destination exists."}, nullptr},
    {{"a", "b", "locked"}, kOverwrite, {"Unable to overwrite destination file : %D%\\locked"}, nullptr},
    {{"a", "b", "locked"}, kAppend, {"Failed to open %D%\\locked", "Error: {5}"}, nullptr},
    {{"a", "b", "folder"}, kOverwrite, {"Failed to create %D%\\folder", "Error: {5}"}, nullptr},
    {{"a", "b", "x\\new"}, kFail, {"Failed to create %D%\\x\\new", "Error: {3}"}, nullptr},
    // The destination is a source.
    {{"a", "b", "a"}, kOverwrite, {"Failed to open %D%\\a", "Error: {32}"}, nullptr},
    {{"a", "b", "b"}, kOverwrite, {"Failed to open %D%\\b", "Error: {32}"}, nullptr},
    {{"a", "b", "a"}, kAppend, {"Failed to open %D%\\a", "Error: {32}"}, nullptr},
};

const StringList kDisk = {"a=aa", "b=b", "empty=", "folder/", "!locked=locked", "old=old"};

TEST_F(Concat, WritesOrAppendsBothFiles) {
  for (const ConcatCase& wanted : kDone) {
    folder.Write("old", "old");
    disk.Write(kDisk);
    EXPECT_TRUE(Run(wanted.names, wanted.mode));
    StringList lines;
    for (const std::string& count : wanted.lines) {
      lines.push_back("Copied " + count + " bytes from source file " + std::to_string(lines.size() + 1));
    }
    lines.push_back("Concatenation done.");
    EXPECT_EQ(Lines(), lines);
    EXPECT_THAT(disk.Read(), testing::Contains(wanted.changed));
    GetPlatform().entries->Delete(folder.Path("new"));
  }
}

TEST_F(Concat, RefusesInOrderAndChangesNothing) {
  disk.Write(kDisk);
  const StringList before = disk.Read();
  for (const ConcatCase& wanted : kRefused) {
    EXPECT_FALSE(Run(wanted.names, wanted.mode));
    EXPECT_EQ(Lines(), disk.Lines(wanted.lines));
    EXPECT_EQ(disk.Read(), before);
  }
}

TEST_F(Concat, ExpansionFailuresAreTheHostsToReportAndItsOwn) {
  disk.Write(kDisk);
  EXPECT_FALSE(Run({"=$(", "x", ""}, kFail));
  EXPECT_EQ(Lines(), StringList{"Error expanding Source 1 filename"});
  EXPECT_FALSE(Run({"a", "=$(", ""}, kFail));
  EXPECT_EQ(Lines(), StringList{"Error expanding Source 2 filename"});
  EXPECT_FALSE(Run({"a", "b", "=$("}, kFail));
  EXPECT_EQ(Lines(), StringList{"Error expanding Destination filename"});
  EXPECT_THAT(Errors(), testing::ElementsAre(testing::StartsWith("Destination filename: ")));
}

TEST_F(Concat, ASourceThatAnotherProgramHoldsLeavesTheDestination) {
  disk.Write(kDisk);
  const ExclusiveOpen held(folder.Path("b"));
  for (const TDestExistsAct mode : {kAppend, kOverwrite}) {
    EXPECT_FALSE(Run({"a", "b", "old"}, mode));
    EXPECT_EQ(Lines(), disk.Lines({"Failed to open %D%\\b", "Error: {32}"}));
    EXPECT_EQ(folder.Read("old"), "old");
  }
}

TEST_F(Concat, WhatFailsOnTheWayLeavesEverythingAsItWas) {
  disk.Write(kDisk);
  const StringList before = disk.Read();
  fault = [](const PlatformCall& call) -> std::optional<SysResult> {
    if (call.operation != "file.Read" || NamePart(call.path) != "b") return {};
    return SysResult::Failure(Win32Error::GeneralFailure);
  };
  for (const char* destination : {"old", "new"}) {
    for (const TDestExistsAct mode : {kAppend, kOverwrite}) {
      EXPECT_FALSE(Run({"a", "b", destination}, mode));
      EXPECT_EQ(Lines(),
                disk.Lines({"Copied 2 bytes from source file 1",
                            std::string("Failed to copy %D%\\b to %D%\\") + destination, "Error: {31}"}));
      EXPECT_EQ(disk.Read(), before);
    }
  }
}

TEST_F(Concat, AStoppedBuildLeavesEverythingAsItWas) {
  disk.Write(kDisk);
  const StringList before = disk.Read();
  fault = [this](const PlatformCall& call) -> std::optional<SysResult> {
    if (call.operation == "file.Read" && NamePart(call.path) == "b") Context().Stop().RequestStop();
    return {};
  };
  EXPECT_FALSE(Run({"a", "b", "old"}, kAppend));
  EXPECT_EQ(Lines(), StringList{"Copied 2 bytes from source file 1"});
  EXPECT_EQ(disk.Read(), before);
}

}  // namespace
