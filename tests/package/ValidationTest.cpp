#include "gtest/gtest.h"

#include "frame/Vekfilereg.h"
#include "support/NullHost.h"
#include "support/RunTable.h"
#include "support/ScriptedServices.h"

namespace {

struct Problems final : IVekActionValidationError {
  void AddError(std::string_view title, std::string_view message) override {
    lines.push_back(std::string(title) + ": " + std::string(message));
  }
  StringList lines;
};

/// What an action says of its settings, and what to set so that it says nothing; blanks are enough.
struct ValidationCase {
  const char *typeId, *set, *problems, *complete;
};

// clang-format off
constexpr ValidationCase kCases[] = {
    {"HCHECKFILE", "", "FileOrDirectory: Field is empty!", "FileOrDirectory= "},
    {"HCREATE_DIR", "", "Directory: The directory to create has not been set", "FileOrDirectory= "},
    {"HDELETE_DIR", "", "Directory: The directory to delete has not been set", "FileOrDirectory= "},
    {"HMOVEDIR", "", "Source directory: A source directory has not been specified|"
     "Destination directory: A destination directory has not been specified", "Directory= |DestinationDirectory= "},
    {"HRENAMEFILE", "", "Directory: The existing directory has not been set|"
     "New name: The new name of the directory or file has not been set", "RenameDir=False|SourceFile= |NewDirName= "},
    {"HTOUCHFILES", "", "File Spec: File spec has not been set", "FileSpec= "},
    {"HSETFILEATTRIB", "", "File Spec: The file spec has not been set", "FileSpec= "},
    {"HCREATEFILE", "", "New File Name: New filename has not been set", "NewFileName= "},
    {"WRITETOTEXTFILE", "", "File Name: New filename has not been set", "FileName=%UNKNOWN%"},
    {"HCOPYFILES", "", "File Spec: The file spec has not been set|Target: The target file/directory has not been set", "FileSpec= |Target= "},
    {"FILESETCOPY", "", "FileSet: FileSet name has not been set|Destination Folder: The destination folder has not been set",
     "FileSetName= |DestinationFolder= "},
    {"HREADINI", "", "Ini File: Ini file has not been set|Section: The section has not been set|"
     "Value Name: The value name has not been set|Variable: The variable name has not been set",
     "IniFile= |Section= |ValueName= |VariableName= "},
    {"CRC32", "", "File Name: Filename has not been set", "FileName= "},
    {"HCONCAT", "", "Source File 1: Source File 1 has not been set|Destination File: The Destination file has not been set",
     "SourceFile1= |DestinationFile= "},
    {"FILECOMPARE", "", "File Name: Missing file name.", "FileA= |FileB= "},
    {"VEKSETREG", "", "Registry Key: Registry Key has not been set", "RegKey= "},
    {"VEKDELREG", "", "Registry Key: Registry Key has not been set|Registry Value: Registry Value name has not been set", "RegKey= |RegValueName= "},
    {"HFILEITERATOR", "", "File Spec: File Spec has not been set", "FileSpec= "},
    {"HFILEITERATOR", "FileSpec= |UseFileSet=True", "FileSet: FileSet name has not been set", "FileSetName= "},
    {"FOLDERITERATOR", "", "Starting Folder: A starting folder has not been set", "StartingFolder= "},
    {"INIFILEITERATOR", "", "Inifile: An INI file has not been set|Sections Variable: The Sections Variable has not been set",
     "IniFilename= |SectionsVar= "},
    {"INIFILEITERATOR", "IniFilename= |SectionsVar= |IteratorMode=iiValues", "Variable: Both Name variable and Values variable has not been set", "ValueVariable= "},
    {"LOADVARFROMINI", "", "IniFile: IniFile has not been set", "INIFile= "},
    {"READTEXTFILEITERATOR", "", "Filename: A filename has not been set", "TextFileName= "},
    {"READTEXTFILE", "", "File Name: Filename has not been set", "FileName= "},
    {"TEXTREPLACE", "", "Filename: A filename has not been specified", "Filename= "},
    {"TEXTFIND", "", "", ""},
    {"HEXECUTEPROG", "", "Program: The program to execute has not been set", "ProgramName= "},
    {"HRUNDOS", "", "DOS Command: The DOS command has not been set", "Command= "},
    {"HXCOPY", "", "Source: A source must be specified|Destination: A destination must be specified", "Source= |Destination= "},
    {"HSHELLEXECUTE", "", "Filename: A filename has not been specified", "FileSpec= "},
    {"CLOSEPROCESS", "", "", ""},
    {"HASKQUESTION", "", "Prompt Text: The prompt text has not been set", "PromptText= "},
    {"HASKQUESTION", "PromptText=?|AnswerAction=ResultIntoVariable", "Variable: The variable name has not been set", "VekVariable= "},
    {"HMULTIQUESTION", "", "Prompt Text: The prompt text has not been set|Answers: At least two answers are needed|"
     "Variable: The variable name has not been set", "PromptText= |VekVariable= |Answers+=a|Answers+= |Answers+=b"},
    {"HPROMPTFORVAR", "", "Variables: No variables have been set", "Variables+=|Variables+=X"},
    {"PROMPTFORDIRORFILE", "", "Variable: The variable name has not been set", "VekVariable= "},
    {"HDATETIME", "", "Variable: The variable name has not been set", "VekVariable= "},
    {"HDATETIME", "VekVariable=X|DateTimeSource=dsFile", "File Name: Filename has not been set", "FileName= "},
    {"HDISKSPACE", "", "", ""},
    {"HDISKSPACE", "FailIfLess=True", "Minimum Free Space: The minimum free space has not been set", "MinimumFree= "},
    {"EXTRACTFILEINFO", "", "File Name: Filename has not been set", "FileName= "},
    {"BEEP", "", "", ""},
    {"BEEP", "BeepType=btSoundFile", "Sound File: The sound file has not been set", "SoundFile= "},
};
// clang-format on

TEST(Validation, ReportsEverySettingThatIsMissing) {
  ScriptedServices services;
  VekRegister(false);
  NullHost host;
  for (const ValidationCase& wanted : kCases) {
    SCOPED_TRACE(std::string(wanted.typeId) + ' ' + wanted.set);
    const auto action = services.catalogue.Find(wanted.typeId)->actionClass->create(host);
    SetProperties(*action, wanted.set);
    Problems before, after;
    EXPECT_EQ(action->Validate(before), *wanted.problems == 0);
    EXPECT_EQ(JoinLines(before.lines, "|"), wanted.problems);
    SetProperties(*action, wanted.complete);
    EXPECT_TRUE(action->Validate(after));
    EXPECT_TRUE(after.lines.empty());
  }
}

}  // namespace
