#include "pages/VekXcopyFrames.h"

TXCopyMainFrame::TXCopyMainFrame() : TActionFrame("XCopy") {
  using enum TVekXCopyMode;
  using enum TVekXCopyLogMode;
  Heading("Source");
  ButtonEdit("txtSource", "Source")
      .Hint("Files to copy")
      .BrowsesForFile("Select Source", "All Files (*.*)|*.*");
  Heading("Destination");
  ButtonEdit("txtDestination", "Destination")
      .Hint("Destination folder")
      .BrowsesForDirectory("Select Destination");
  Heading("Copy Mode");
  RadioButton("rbNormal", "Files", "XCopyMode", mdNormal);
  RadioButton("rbRecursive", "Files and Sub-directories", "XCopyMode", mdRecursive);
  RadioButton("rbTest", "Only List Files", "XCopyMode", mdTest);
  RadioButton("rbDirStructure", "Only the Directory Structure", "XCopyMode", mdDirStructure);
  Heading("Log Mode");
  RadioButton("rbLogNormal", "Normal", "XCopyLogMode", logNormal);
  RadioButton("rbLogQuiet", "Quiet", "XCopyLogMode", logQuiet);
  RadioButton("rbLogVerbose", "Verbose", "XCopyLogMode", logVerbose);
}

TXCopyOptionsFrame::TXCopyOptionsFrame() : TActionFrame("Options") {
  Heading("Which Files");
  CheckBox("chkOnlyExisting", "Only Files That Already Exist in Destination", "OnlyFilesThatAlreadyExist");
  CheckBox("chkNewerFiles", "Only Newer Files", "CopyNewerFiles");
  CheckBox("chkChangedAfter", "Only Files Changed on or After", "CopyFilesChnagedAfter");
  Edit("txtChangedAfter", "ChangedAfterDate").Hint("Date");
  Heading("How");
  CheckBox("chkShortNames", "Use Short Names", "CopyUsingShortNames");
  CheckBox("chkNetworked", "Restartable Network Copy", "CopyNetworkedFiles");
  CheckBox("chkVerify", "Verify", "Verify");
  CheckBox("chkIgnoreErrors", "Ignore Errors", "IgnoreErrors");
  CheckBox("chkEncrypted", "Copy Encrypted Files Where Destination Has No Encryption",
           "CopyEncryptedIfNotSupportedInDest");
}

TXCopyAttribFrame::TXCopyAttribFrame() : TActionFrame("Attributes") {
  Heading("Attributes");
  CheckBox("chkOnlyArchive", "Only Archive Files", "OnlyArchiveFiles");
  CheckBox("chkTurnOffArchive", "Turn Off Archive Bit", "TurnOffArchiveBit");
  CheckBox("chkHiddenAndSys", "Copy Hidden and System Files", "CopyHiddenAndSys");
  CheckBox("chkOverwriteReadOnly", "Overwrite Read Only Files", "OverwriteReadOnly");
  CheckBox("chkCopyAttributes", "Copy Attributes", "CopyAttributes");
  CheckBox("chkOwnership", "Copy Ownership and Access Control", "CopyOwnershipAndACL");
  CheckBox("chkAudit", "Copy File Audit Settings", "CopyFileAuditSettings");
}

TVekXcopyExcludeFilesFrame::TVekXcopyExcludeFilesFrame() : TActionFrame("Exclude Files") {
  Heading("Excluded Files");
  ListBox("lbExcludeFiles", "ExcludeFiles").Hint("Parts of names; wildcards are not understood");
}
