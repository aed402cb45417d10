#include "pages/VekRobocopySelectionFrames.h"

TRobocopyIncludeFrame::TRobocopyIncludeFrame() : TRobocopyAttributesFrame("Include") {
  Heading("Folders");
  CheckBox("chkIncludeSubDirs", "Include Sub-directories", "IncludeSubDirs");
  CheckBox("chkIncludeEmptyDirs", "Include Empty Directories", "IncludeEmptyDirs");
  Heading("Only Files with Attributes");
  CheckBox("chkIncludeUsingAttrib", "Include Using Attributes", "DoIncludeUsingAttrib");
  AttributeBoxes<TRobocopyAttribs>("chkInclude", "IncludeFilesAttrib");
  CheckBox("chkOnlyArchive", "Only Archive Files, Clear Archive Bit", "OnlyArchiveFilesAndClearArchiveBit");
  Heading("Tagged Files");
  CheckBox("chkIncludeSame", "Include Same Files", "IncludeTaggedSame");
  CheckBox("chkIncludeTweaked", "Include Tweaked Files", "IncludeTaggedTweaked");
  Heading("Run");
  CheckBox("chkOnlyListFiles", "Only List Files", "OnlyListFiles");
  CheckBox("chkWaitForShares", "Wait for Shares to be Defined", "WaitForSharesToBeDefined");
  Edit("txtDelay", "DelayToFreeUpBandwidth").Hint("Milliseconds between packets, to free up bandwidth");
}

TRobocopyExcludeFrame::TRobocopyExcludeFrame() : TRobocopyAttributesFrame("Exclude") {
  Heading("Files with Attributes");
  AttributeBoxes<TRobocopyAttribs>("chkExclude", "ExcludeFilesAttrib");
  Heading("Tagged Files");
  CheckBox("chkExcludeJunctions", "Junction Points", "ExcludeJunctionPoints");
  CheckBox("chkExcludeChanged", "Changed Files", "ExcludeTaggedChanged");
  CheckBox("chkExcludeNewer", "Newer Files", "ExcludeTaggedNewer");
  CheckBox("chkExcludeOlder", "Older Files", "ExcludeTaggedOlder");
  CheckBox("chkExcludeExtra", "Extra Files", "ExcludeTaggedExtra");
  CheckBox("chkExcludeLonely", "Lonely Files", "ExcludeTaggedLonely");
  Heading("Size");
  CheckBox("chkExcludeLarge", "Large Files", "ExcludeLargeFiles");
  Edit("txtMaxFileSize", "MaxFileSizeBytes").Hint("Bytes of the largest file that is not excluded");
  CheckBox("chkExcludeSmall", "Small Files", "ExcludeSmallFiles");
  Edit("txtMinFileSize", "MinFileSizeBytes").Hint("Bytes of the smallest file that is not excluded");
  Heading("Age");
  AddAge("MaxAge", "Old Files", "ExcludeOldFiles", "UseMaxAgeDays", "MaxAgeDays", "MaxAgeDate");
  AddAge("MinAge", "New Files", "ExcludeNewFiles", "UseMinAgeDays", "MinAgeDays", "MinAgeDate");
  Heading("Last Access");
  AddAge("MaxLAD", "Files not Used for Long", "ExcludeLADOldFiles", "UseMaxLADDays", "MaxLADDays",
         "MaxLADDate");
  AddAge("MinLAD", "Files Used Lately", "ExcludeLADNewFiles", "UseMinLADDays", "MinLADDays", "MinLADDate");
}

void TRobocopyExcludeFrame::AddAge(const std::string& name, std::string_view caption,
                                   Property<TCheckBox> wanted, Property<ChoiceOf<bool>> byDays,
                                   Property<TEdit> days, Property<TEdit> date) {
  CheckBox("chk" + name, caption, wanted);
  RadioButton("rb" + name + "Days", "By Days", byDays, true);
  Edit("txt" + name + "Days", days).Hint("Days");
  RadioButton("rb" + name + "Date", "By Date", byDays, false);
  Edit("txt" + name + "Date", date).Hint("Date");
}

TVekRobocopyExcludeFilesFrame::TVekRobocopyExcludeFilesFrame() : TActionFrame("Exclude Files") {
  Heading("Excluded Files");
  ListBox("lbExcludeFiles", "ExcludeFiles").Hint("Names, paths or wildcards");
}

TVekRobocopyExcludeDirFrame::TVekRobocopyExcludeDirFrame() : TActionFrame("Exclude Directories") {
  Heading("Excluded Directories");
  ListBox("lbExcludeDirs", "ExcludeDirs").Hint("Names or paths");
}
