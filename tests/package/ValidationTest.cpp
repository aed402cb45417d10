#include <functional>

#include "gtest/gtest.h"

#include "checksum/VekFileCRCAction.h"
#include "fileops/BActions1.h"
#include "fileops/VekConcatFilesAction.h"
#include "fileops/VekCopyMove.h"
#include "fileops/VekFileAttrib.h"
#include "fileops/VekFileCompare.h"
#include "fileops/VekFileSetCopyMove.h"
#include "fileops/VekMoveDirectoryAction.h"
#include "fileops/VekRenameDirectoryAction.h"
#include "fileops/VekTouchFile.h"
#include "interaction/VekBeepAction.h"
#include "interaction/VekDateTimeAction.h"
#include "interaction/VekDiskInfoAction.h"
#include "interaction/VekExtractFileVerInfoAction.h"
#include "interaction/VekMultiQuestionAction.h"
#include "interaction/VekPromptForFileOrDirAction.h"
#include "interaction/VekQuestionAction.h"
#include "interaction/VekVariablePromptAction.h"
#include "iterators/VekFolderIteratorAction.h"
#include "iterators/VekIniFileIteratorAction.h"
#include "iterators/VekReadTextFileIteratorAction.h"
#include "iterators/Vekfileiterator.h"
#include "process/FRunProg.h"
#include "process/VekCloseProcessAction.h"
#include "process/VekShellExecute.h"
#include "process/VekXcopyAction.h"
#include "support/NullHost.h"
#include "textini/VekCreateTextFileAction.h"
#include "textini/VekReadTextFileAction.h"
#include "textini/VekTextFind.h"
#include "textini/VekTextReplaceAction.h"
#include "textini/VekVariablesSaveLoadAction.h"
#include "textini/VekWriteToTextFileAction.h"
#include "textini/Vekinifile.h"
#include "textini/Vekregaction.h"

namespace {

struct Problems final : IVekActionValidationError {
  void AddError(std::string_view title, std::string_view message) override {
    lines.push_back(std::string(title) + ": " + std::string(message));
  }
  StringList lines;
};

/// What an action says before and after `complete` has filled it in; blanks and expressions are enough.
template <class Action>
void ExpectProblems(const StringList& wanted, const std::function<void(Action&)>& complete) {
  NullHost host;
  Action action(host);
  Problems before, after;
  EXPECT_EQ(action.Validate(before), wanted.empty());
  EXPECT_EQ(before.lines, wanted);
  complete(action);
  EXPECT_TRUE(action.Validate(after)) << action.GetActionName();
  EXPECT_TRUE(after.lines.empty());
}

const WideString kBlank(" ");

TEST(Validation, ReportsEverySettingThatIsMissing) {
  const auto nameIt = [](auto& action) { action.SetFileOrDirectory(kBlank); };
  ExpectProblems<TFileExistsAction>({"FileOrDirectory: Field is empty!"}, nameIt);
  ExpectProblems<TCreateDirectoryAction>({"Directory: The directory to create has not been set"}, nameIt);
  ExpectProblems<TDeleteDirectoryAction>({"Directory: The directory to delete has not been set"}, nameIt);
  ExpectProblems<TVekMoveDirectoryAction>(
      {"Source directory: A source directory has not been specified",
       "Destination directory: A destination directory has not been specified"},
      [](auto& action) { action.Directory = action.DestinationDirectory = " "; });
  ExpectProblems<TRenameDirAction>({"Directory: The existing directory has not been set",
                                    "New name: The new name of the directory or file has not been set"},
                                   [](auto& action) {
                                     action.RenameDir = false;
                                     action.SourceFile = action.NewDirName = " ";
                                   });
  ExpectProblems<TTouchFilesAction>({"File Spec: File spec has not been set"},
                                    [](auto& action) { action.FileSpec = kBlank; });
  ExpectProblems<TSetFileAttributesAction>({"File Spec: The file spec has not been set"},
                                           [](auto& action) { action.FileSpec = kBlank; });
  ExpectProblems<TVekCreateTextFileAction>({"New File Name: New filename has not been set"},
                                           [](auto& action) { action.NewFileName = kBlank; });
  ExpectProblems<TVekWriteToTextFileAction>({"File Name: New filename has not been set"},
                                            [](auto& action) { action.FileName = "%UNKNOWN%"; });
  ExpectProblems<TCopyFilesAction>(
      {"File Spec: The file spec has not been set", "Target: The target file/directory has not been set"},
      [](auto& action) {
        action.SetFileSpec(" ");
        action.Target = kBlank;
      });
  ExpectProblems<TVekFileSetCopyMoveAction>({"FileSet: FileSet name has not been set",
                                             "Destination Folder: The destination folder has not been set"},
                                            [](auto& action) {
                                              action.SetFileSetName(" ");
                                              action.DestinationFolder = " ";
                                            });
  ExpectProblems<TReadIniFileAction>(
      {"Ini File: Ini file has not been set", "Section: The section has not been set",
       "Value Name: The value name has not been set", "Variable: The variable name has not been set"},
      [](auto& action) {
        action.IniFile = action.Section = action.ValueName = action.VariableName = kBlank;
      });
  ExpectProblems<TVekFileCRCAction>({"File Name: Filename has not been set"},
                                    [](auto& action) { action.FileName = " "; });
  ExpectProblems<TConcatAction>({"Source File 1: Source File 1 has not been set",
                                 "Destination File: The Destination file has not been set"},
                                [](auto& action) { action.SourceFile1 = action.DestinationFile = " "; });
  ExpectProblems<TVekFileCompareAction>({"File Name: Missing file name."},
                                        [](auto& action) { action.FileA = action.FileB = " "; });
  ExpectProblems<TSetRegValueAction>({"Registry Key: Registry Key has not been set"},
                                     [](auto& action) { action.RegKey = " "; });
  ExpectProblems<TDeleteRegValueAction>(
      {"Registry Key: Registry Key has not been set", "Registry Value: Registry Value name has not been set"},
      [](auto& action) { action.RegKey = action.RegValueName = " "; });
  ExpectProblems<TFileIterator>({"File Spec: File Spec has not been set"},
                                [](auto& action) { action.SetFileSpec(kBlank); });
  ExpectProblems<TFolderIterator>({"Starting Folder: A starting folder has not been set"},
                                  [](auto& action) { action.StartingFolder = kBlank; });
  ExpectProblems<TIniFileIterator>(
      {"Inifile: An INI file has not been set", "Sections Variable: The Sections Variable has not been set"},
      [](auto& action) { action.IniFilename = action.SectionsVar = " "; });
  ExpectProblems<TVekVariablesLoadAction>({"IniFile: IniFile has not been set"},
                                          [](auto& action) { action.INIFile = " "; });
  ExpectProblems<TReadTextFileIterator>({"Filename: A filename has not been set"},
                                        [](auto& action) { action.TextFileName = kBlank; });
  ExpectProblems<TVekReadTextFileAction>({"File Name: Filename has not been set"},
                                         [](auto& action) { action.FileName = " "; });
  ExpectProblems<TTextReplaceAction>({"Filename: A filename has not been specified"},
                                     [](auto& action) { action.Filename = " "; });
  ExpectProblems<TVekTextFindAction>({}, [](auto&) {});
  ExpectProblems<TRunProgramAction>({"Program: The program to execute has not been set"},
                                    [](auto& action) { action.SetProgramName(kBlank); });
  ExpectProblems<TRunDosCMDAction>({"DOS Command: The DOS command has not been set"},
                                   [](auto& action) { action.SetCommand(kBlank); });
  ExpectProblems<TVekXCopyAction>(
      {"Source: A source must be specified", "Destination: A destination must be specified"},
      [](auto& action) { action.Source = action.Destination = " "; });
  ExpectProblems<TVekShellExecute>({"Filename: A filename has not been specified"},
                                   [](auto& action) { action.SetFileSpec(" "); });
  ExpectProblems<TVekCloseProcessAction>({}, [](auto&) {});
}

TEST(Validation, AnIniFileIteratorAsksForWhatItsModeNeeds) {
  NullHost host;
  TIniFileIterator iterator(host);
  iterator.IniFilename = iterator.SectionsVar = " ";
  iterator.IteratorMode = TIniIteratorMode::iiValues;
  Problems problems;
  EXPECT_FALSE(iterator.Validate(problems));
  EXPECT_EQ(problems.lines, StringList{"Variable: Both Name variable and Values variable has not been set"});
  iterator.ValueVariable = " ";
  EXPECT_TRUE(iterator.Validate(problems));
}

TEST(Validation, ReportsWhatIsNotSetToBeAskedOrFoundOut) {
  ExpectProblems<TVekQuestionAction>({"Prompt Text: The prompt text has not been set"},
                                     [](auto& action) { action.PromptText = " "; });
  ExpectProblems<TVekMultiQuestionAction>(
      {"Prompt Text: The prompt text has not been set", "Answers: At least two answers are needed",
       "Variable: The variable name has not been set"},
      [](auto& action) {
        action.PromptText = action.VekVariable = " ";
        action.Answers = {"a", " ", "b"};
      });
  ExpectProblems<TVekVariablePromptAction>({"Variables: No variables have been set"}, [](auto& action) {
    action.Variables = {"", "X"};
  });
  ExpectProblems<TVekpromptForFileOrDirAction>({"Variable: The variable name has not been set"},
                                               [](auto& action) { action.VekVariable = " "; });
  ExpectProblems<TDateTimeAction>({"Variable: The variable name has not been set"},
                                  [](auto& action) { action.VekVariable = " "; });
  ExpectProblems<TDiskInfoAction>({}, [](auto&) {});
  ExpectProblems<TVekExtractFileVerInfoAction>({"File Name: Filename has not been set"},
                                               [](auto& action) { action.FileName = " "; });
  ExpectProblems<TBeepAction>({}, [](auto&) {});
}

template <class Action>
void ExpectProblem(const std::string& wanted, const std::function<void(Action&)>& set) {
  NullHost host;
  Action action(host);
  set(action);
  Problems problems;
  EXPECT_FALSE(action.Validate(problems));
  EXPECT_EQ(problems.lines, StringList{wanted});
}

TEST(Validation, AsksForWhatASettingNeeds) {
  ExpectProblem<TVekQuestionAction>("Variable: The variable name has not been set", [](auto& action) {
    action.PromptText = "?";
    action.AnswerAction = TAnswerAction::ResultIntoVariable;
  });
  ExpectProblem<TDateTimeAction>("File Name: Filename has not been set", [](auto& action) {
    action.VekVariable = "X";
    action.DateTimeSource = TDateTimeSource::dsFile;
  });
  ExpectProblem<TDiskInfoAction>("Minimum Free Space: The minimum free space has not been set",
                                 [](auto& action) { action.FailIfLess = true; });
  ExpectProblem<TBeepAction>("Sound File: The sound file has not been set",
                             [](auto& action) { action.BeepType = TBeepTypes::btSoundFile; });
}

TEST(Validation, AFileIteratorAsksForWhatItsModeNeeds) {
  NullHost host;
  TFileIterator iterator(host);
  iterator.SetFileSpec(kBlank);
  iterator.SetUseFileSet(true);
  Problems problems;
  EXPECT_FALSE(iterator.Validate(problems));
  EXPECT_EQ(problems.lines, StringList{"FileSet: FileSet name has not been set"});
}

}  // namespace
