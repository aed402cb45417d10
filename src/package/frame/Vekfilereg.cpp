#include "frame/Vekfilereg.h"

#include "checksum/VekFileCRCAction.h"
#include "checksum/VekFileMD5Action.h"
#include "coreapi/Vekservices.h"
#include "fileops/BActions1.h"
#include "fileops/VekConcatFilesAction.h"
#include "fileops/VekCopyMove.h"
#include "fileops/VekDeleteFilesAction.h"
#include "fileops/VekFileAttrib.h"
#include "fileops/VekFileCompare.h"
#include "fileops/VekFileSetCopyMove.h"
#include "fileops/VekMoveDirectoryAction.h"
#include "fileops/VekRenameDirectoryAction.h"
#include "fileops/VekTouchFile.h"
#include "frame/Vekcatalogue.h"
#include "frame/Vekregistryreg.h"
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
#include "iterators/VekListIteratorActoin.h"
#include "iterators/VekReadTextFileIteratorAction.h"
#include "iterators/Vekfileiterator.h"
#include "pages/FCopyMoveEditFrame.h"
#include "pages/FRunProgFrame.h"
#include "pages/VekBeepFrame.h"
#include "pages/VekCheckFileFrame.h"
#include "pages/VekCloseProcessFrame.h"
#include "pages/VekConcatFilesFrame.h"
#include "pages/VekCreateDirectoryFrame.h"
#include "pages/VekCreateFileFrame.h"
#include "pages/VekDeleteDirFrame.h"
#include "pages/VekDiskFreeSpaceFrame.h"
#include "pages/VekExtractFileVersionInfoFrame.h"
#include "pages/VekFileAttributeEditor.h"
#include "pages/VekFileAttributeFrame.h"
#include "pages/VekFileCRCFrame.h"
#include "pages/VekFileCompareFrame.h"
#include "pages/VekFileIteratorFrame.h"
#include "pages/VekFileMD5Frame.h"
#include "pages/VekFileSetCopyMoveFrame.h"
#include "pages/VekFolderIteratorFrame.h"
#include "pages/VekGetDateTimeFrame.h"
#include "pages/VekIfCOMClassRegFrame.h"
#include "pages/VekIniFileIteratorFrame.h"
#include "pages/VekListIteratorFrame.h"
#include "pages/VekLogVarFrame.h"
#include "pages/VekMoveDirectoryFrame.h"
#include "pages/VekMultiQuestionFrame.h"
#include "pages/VekPromptForFileOrDirFrame.h"
#include "pages/VekQuestionFrame.h"
#include "pages/VekReadFileFrame.h"
#include "pages/VekReadTextFileIteratorFrame.h"
#include "pages/VekRenameDirFrame.h"
#include "pages/VekRobocopyFrames.h"
#include "pages/VekRobocopyOptionsFrame.h"
#include "pages/VekRobocopySelectionFrames.h"
#include "pages/VekShellExecuteFrame.h"
#include "pages/VekTextFindFrame.h"
#include "pages/VekTextReplaceFrame.h"
#include "pages/VekTouchFilesDateEditor.h"
#include "pages/VekTouchFrame.h"
#include "pages/VekVariablePromptFrame.h"
#include "pages/VekVariablesLoadOptionsFrame.h"
#include "pages/VekVariablesSaveLoadForm.h"
#include "pages/VekVariablesSaveOptionsFrame.h"
#include "pages/VekWriteToTextFileFrame.h"
#include "pages/VekXcopyFrames.h"
#include "pages/Vekdeletefilesframe.h"
#include "pages/Vekeditors.h"
#include "pages/Vekreadiniframe.h"
#include "pages/Vekwriteiniframe.h"
#include "process/FRunProg.h"
#include "process/VekCloseProcessAction.h"
#include "process/VekIFCOMClassRegistered.h"
#include "process/VekRobocopyMainAction.h"
#include "process/VekRobocopyOptions.h"
#include "process/VekShellExecute.h"
#include "process/VekXcopyAction.h"
#include "process/Vekrunscriptaction.h"
#include "textini/VekCreateTextFileAction.h"
#include "textini/VekLogVariableValues.h"
#include "textini/VekReadTextFileAction.h"
#include "textini/VekTextFind.h"
#include "textini/VekTextReplaceAction.h"
#include "textini/VekVariablesSaveLoadAction.h"
#include "textini/VekWriteToTextFileAction.h"
#include "textini/Vekinifile.h"

namespace {

constexpr std::string_view kFiles = "Files & Directories";
constexpr std::string_view kInteractive = "Interactive";
constexpr std::string_view kIterators = "Iterators";
constexpr std::string_view kMisc = "Misc";
constexpr std::string_view kWindowsOS = "Windows OS";
constexpr std::string_view kRegistryAndIni = "Registry & Ini";
constexpr std::string_view kVariables = "Variables";

Variant ResetLoop(TCustomVekAction& action, std::span<const Variant> /*arguments*/) {
  static_cast<TVekBaseIterator&>(action).Reset();
  return {};
}

/// Scripts can restart the loops of the class.
template <class Iterator>
void RegisterReset(bool /*designTime*/) {
  static_assert(std::is_base_of_v<TVekBaseIterator, Iterator>);
  VekScriptingServices().RegisterScriptMethod(Iterator::Class(), "Reset", "", ResetLoop);
}

/// Scripts know the names of the sounds.
void RegisterBeepTypes(bool /*designTime*/) {
  VekScriptingServices().RegisterScriptEnumType(property_detail::EnumTypeOf<TBeepTypes>());
}

constexpr OptionsClass kRobocopyOptions =
    OptionsClassOf<TVekRobocopyOptions>(&kPageClass<TRobocopyOptionsFrame>);

void RegisterRobocopyOptions(bool /*designTime*/) {
  VekOptionsServices().RegisterOptionsPage(kRobocopyOptions, "ROBOCOPYICON");
}

constexpr EditorRow kMoveEditors[] = {
    PropertyEditor<TMoveFilesAction>("WideString", "FileSpec", kFileNameEditEx),
    PropertyEditor<TMoveFilesAction>("WideString", "Target", kFileNameEditEx),
};

void RegisterMoveEditors() { RegisterEditors(kMoveEditors); }

// In registration order; a host lists the types of a category in it.
// clang-format off
constexpr CatalogueRow kCatalogue[] = {
    ActionRow<TFileExistsAction, TCheckFileFrame>("HCHECKFILE", kOwnName, kFiles),
    ActionRow<TCreateDirectoryAction, TCreateDirectoryFrame>("HCREATE_DIR", kOwnName, kFiles),
    ActionRow<TDeleteDirectoryAction, TDeleteDirFrame>("HDELETE_DIR", kOwnName, kFiles),
    PageRoutineRow(RegisterMoveEditors),  // behind the pages of Delete Directory
    ActionRow<TVekMoveDirectoryAction, TMoveDirectoryFrame>("HMOVEDIR", kOwnName, kFiles),
    ActionRow<TVekQuestionAction, TQuestionFrame>("HASKQUESTION", kOwnName, kInteractive),
    ActionRow<TDeleteFilesAction, TDeleteFilesFrame>("HDELETE_FILE", "Delete File(s)", kFiles),
    ActionRow<TCopyFilesAction, TCopyFrame>("HCOPYFILES", "Copy File(s)", kFiles),
    ActionRow<TMoveFilesAction, TMoveFrame>("HMOVEFILES", "Move File(s)", kFiles),
    ActionRow<TSetFileAttributesAction, TFileAttributeFrame>("HSETFILEATTRIB", kOwnName, kFiles),
    ActionRow<TFileIterator, TFileIteratorFrame>("HFILEITERATOR", "File Iterator", kIterators),
    RoutineRow(RegisterReset<TFileIterator>),
    ActionRow<TFolderIterator, TFolderIteratorFrame>("FOLDERITERATOR", "Folder Iterator", kIterators),
    RoutineRow(RegisterReset<TFolderIterator>),
    ActionRow<TReadIniFileAction, TReadIniFrame>("HREADINI", kOwnName, kRegistryAndIni),
    ActionRow<TWriteIniFileAction, TWriteIniFrame>("HWRITEINI", kOwnName, kRegistryAndIni),
    ActionRow<TVekScriptAction>("SCRIPTACTION", kOwnName, kMisc),
    ActionRow<TTouchFilesAction, TTouchFrame>("HTOUCHFILES", kOwnName, kFiles),
    ActionRow<TVekVariablePromptAction, TVekVariablePromptFrame>("HPROMPTFORVAR", kOwnName, kInteractive),
    ActionRow<TRunProgramAction, TRunProgramFrame>("HEXECUTEPROG", "Execute Program", kWindowsOS),
    ActionRow<TRunDosCMDAction, TRunDosCmdFrame>("HRUNDOS", "Run DOS Command", kWindowsOS),
    ActionRow<TConcatAction, TConcatFilesFrame>("HCONCAT", kOwnName, kFiles),
    ActionRow<TDiskInfoAction, TDiskFreeSpaceFrame>("HDISKSPACE", kOwnName, kWindowsOS),
    ActionRow<TDateTimeAction, TGetDateTimeFrame>("HDATETIME", "Get Date/Time", kMisc),
    RoutineRow(RegisterRegistryUnit),
    ActionRow<TRenameDirAction, TRenameDirFrame>("HRENAMEFILE", kOwnName, kFiles),
    ActionRow<TVekCreateTextFileAction, TCreateFileFrame>("HCREATEFILE", kOwnName, kFiles),
    ActionRow<TVekWriteToTextFileAction, TWriteToTextFileFrame>("WRITETOTEXTFILE", kOwnName, kFiles),
    ActionRow<TVekIfCOMClassRegistered, TVekIfCOMClassRegFrame>("HIFCOMREG", kOwnName, kWindowsOS),
    ActionRow<TVekMultiQuestionAction, TFrameMultiQuestion>("HMULTIQUESTION", kOwnName, kInteractive),
    ActionRow<TVekXCopyAction, TXCopyMainFrame, TXCopyOptionsFrame, TXCopyAttribFrame, TVekXcopyExcludeFilesFrame>("HXCOPY", kOwnName, kFiles),
    RoutineRow(RegisterRobocopyOptions),
    ActionRow<TVekRobocopyCopyAction, TRobocopyMainFrame, TRobocopyCopyOptionsFrame, TRobocopyIncludeFrame, TRobocopyExcludeFrame, TVekRobocopyExcludeFilesFrame, TVekRobocopyExcludeDirFrame, TRobocopyLogOptionsFrame>("ROBOCOPYICON", kOwnName, kFiles),
    ActionRow<TVekRobocopyJobAction, TRobocopyMainFrame, TRobocopyJobsFrame, TRobocopyLogOptionsFrame>("ROBOCOPYJOB", kOwnName, kFiles),
    ActionRow<TVekRobocopyMoveAction, TRobocopyMainFrame, TRobocopyMoveOptionsFrame, TRobocopyIncludeFrame, TRobocopyExcludeFrame, TVekRobocopyExcludeFilesFrame, TVekRobocopyExcludeDirFrame, TRobocopyLogOptionsFrame>("ROBOCOPYMOVE", kOwnName, kFiles),
    ActionRow<TVekRobocopyMirrorAction, TRobocopyMainFrame, TRobocopyIncludeFrame, TRobocopyExcludeFrame, TVekRobocopyExcludeFilesFrame, TVekRobocopyExcludeDirFrame, TRobocopyLogOptionsFrame>("ROBOCOPYMIRROR", kOwnName, kFiles),
    ActionRow<TVekpromptForFileOrDirAction, TPromptForFileOrDirFrame>("PROMPTFORDIRORFILE", kOwnName, kInteractive),
    ActionRow<TVekReadTextFileAction, TReadFileFrame>("READTEXTFILE", kOwnName, kFiles),
    ActionRow<TReadTextFileIterator, TReadTextFileIteratorFrame>("READTEXTFILEITERATOR", kOwnName, kIterators),
    RoutineRow(RegisterReset<TReadTextFileIterator>),
    ActionRow<TIniFileIterator, TIniFileIteratorFrame>("INIFILEITERATOR", "Ini File Iterator", kIterators),
    RoutineRow(RegisterReset<TIniFileIterator>),
    ActionRow<TVekExtractFileVerInfoAction, TExtractFileVersionInfoFrame>("EXTRACTFILEINFO", kOwnName, kFiles),
    ActionRow<TVekListIterator, TListIteratorFrame>("LISTITERATOR", "List Iterator", kIterators),
    RoutineRow(RegisterReset<TVekListIterator>),
    ActionRow<TVekFileCRCAction, TFileCRCFrame>("CRC32", kOwnName, kFiles),
    ActionRow<TVekFileMD5Action, TFileMD5Frame>("MD5", kOwnName, kFiles),
    ActionRow<TVekShellExecute, TVekShellExecuteFrame>("HSHELLEXECUTE", kOwnName, kWindowsOS),
    ActionRow<TTextReplaceAction, TfrmTextReplace>("TEXTREPLACE", kOwnName, kFiles),
    ActionRow<TVekVariablesSaveAction, TVariablesSaveLoadForm, TVariablesSaveOptionsFrame>("SAVEVARTOINI", kOwnName, kVariables),
    ActionRow<TVekVariablesLoadAction, TVariablesSaveLoadForm, TVariablesLoadOptionsFrame>("LOADVARFROMINI", kOwnName, kVariables),
    ActionRow<TVekTextFindAction, TTextFindFrame>("TEXTFIND", kOwnName, kMisc),
    ActionRow<TVekFileCompareAction, TFileCompareFrame>("FILECOMPARE", kOwnName, kFiles),
    ActionRow<TVekLogVariablesAction, TLogVarFrame>("LOGVARIABLEVALS", kOwnName, kMisc),
    ActionRow<TVekCloseProcessAction, TCloseProcessFrame>("CLOSEPROCESS", kOwnName, kWindowsOS),
    ActionRow<TBeepAction, TfrmBeep>("BEEP", kOwnName, kInteractive),
    RoutineRow(RegisterBeepTypes),
    ActionRow<TVekFileSetCopyMoveAction, TFileSetCopyMoveFrame>("FILESETCOPY", "FileSet Copy/Move", "File Sets"),
};
static_assert(HasUniqueTypeIds(kCatalogue), "two rows have one type id");

// The two rows of Delete File(s) apply to nothing: it has no Target, and its FileSpec is a byte string.
constexpr EditorRow kEditors[] = {
    PropertyEditor<TFileExistsAction>("WideString", "FileOrDirectory", kFileNameEdit),
    PropertyEditor<TCreateDirectoryAction>("WideString", "FileOrDirectory", kSelectDirectoryEditor),
    PropertyEditor<TDeleteDirectoryAction>("WideString", "FileOrDirectory", kSelectDirectoryEditor),
    IdlePropertyEditor<TDeleteFilesAction>("WideString", "FileSpec", kFileNameEditEx),
    IdlePropertyEditor<TDeleteFilesAction>("WideString", "Target", kFileNameEditEx),
    PropertyEditor<TCopyFilesAction>("WideString", "FileSpec", kFileNameEditEx),
    PropertyEditor<TCopyFilesAction>("WideString", "Target", kFileNameEditEx),
    PropertyEditor<TSetFileAttributesAction>("WideString", "FileSpec", kFileNameEdit),
    PropertyEditor<TSetFileAttributesAction>("TAttributeSetting", "", kFileAttributeEditor),
    PropertyEditor<TReadIniFileAction>("WideString", "IniFile", kIniFileNameEdit),
    PropertyEditor<TWriteIniFileAction>("WideString", "IniFile", kIniFileNameEdit),
    PropertyEditor<TReadIniFileAction>("WideString", "VariableName", kIniVariableEditor),
    PropertyEditor<TTouchFilesAction>("ByteString", "DateTimeString", kTouchFilesDateEditor),
    PropertyEditor<TTouchFilesAction>("WideString", "FileSpec", kFileNameEdit),
    PropertyEditor<TRunProgramAction>("WideString", "ProgramName", kRunProgEditor),
    PropertyEditor<TRunProgramAction>("WideString", "StartInDir", kStartDirectoryEditor),
};
// clang-format on

}  // namespace

bool VekRegister(bool designTime) {
  RegisterActions(kCatalogue, designTime);
  if (designTime) {
    RegisterEditors(kEditors);
    RegisterPages(kCatalogue);
  }
  return true;
}
