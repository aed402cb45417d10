#include "pages/VekRobocopyFrames.h"

TRobocopyMainFrame::TRobocopyMainFrame() : TActionFrame("Robocopy") {
  Heading("Folders");
  ButtonEdit("txtSourceDir", "SourceDir").Hint("Source Folder").BrowsesForDirectory("Select Source Folder");
  ButtonEdit("txtDestDir", "DestDir")
      .Hint("Destination Folder")
      .BrowsesForDirectory("Select Destination Folder");
  Heading("Failed Copies");
  Edit("txtRetries", "Retries").Hint("Number of retries");
  Edit("txtRetryWait", "RetryWaitSec").Hint("Seconds between retries");
  Heading("Extra Command Line");
  Memo("memExtraCmdLine", "ExtraCmdLine").Hint("Further arguments, one a line");
}

TRobocopyJobsFrame::TRobocopyJobsFrame() : TActionFrame("Jobs") {
  Heading("Job Files");
  ListBox("lbJobFiles", "JobFiles").Hint("Robocopy job files");
}

TRobocopyCopyOptionsFrame::TRobocopyCopyOptionsFrame() : TRobocopyAttributesFrame("Copy Options") {
  using enum TRobocopyCopyFlags;
  Heading("Copy");
  CheckBox("chkCopyData", "Data", "CopyFlags", cfData);
  CheckBox("chkCopyAttrib", "Attributes", "CopyFlags", cfAttrib);
  CheckBox("chkCopyTimestamps", "Time Stamps", "CopyFlags", cfTimestamps);
  CheckBox("chkCopySecurity", "Security", "CopyFlags", cfSecurity);
  CheckBox("chkCopyOwnership", "Ownership", "CopyFlags", cfOwnership);
  CheckBox("chkCopyAuditing", "Auditing", "CopyFlags", cfAuditing);
  Heading("Set Attributes of Copied Files");
  AttributeBoxes<TRobocopyAttribsRange>("chkSet", "SetAttribInCopiedFiles");
  Heading("Turn Off Attributes of Copied Files");
  AttributeBoxes<TRobocopyAttribsRange>("chkClear", "TurnOffAttribInCopiedFiles");
  Heading("FAT File Systems");
  CheckBox("chkFATFileNames", "FAT File Names", "FATFileNames");
  CheckBox("chkFATFileTimes", "FAT File Times", "FATFileTimes");
}

TRobocopyMoveOptionsFrame::TRobocopyMoveOptionsFrame() : TActionFrame("Move Options") {
  Heading("Move Options");
  CheckBox("chkPreserveSourceDirTree", "Preserve Source Directory Tree", "PreserveSourceDirTree");
}

TRobocopyLogOptionsFrame::TRobocopyLogOptionsFrame() : TActionFrame("Log Options") {
  Heading("Log Options");
  CheckBox("chkReportExtraFiles", "Report Extra Files", "ReportExtraFiles");
  CheckBox("chkVerboseOutput", "Verbose Output", "VerboseOutput");
  CheckBox("chkDisplayFileTimestamps", "Display File Time Stamps", "DisplayFileTimestamps");
  CheckBox("chkDisplayFullPathnames", "Display Full Path Names", "DisplayFullPathnames");
  CheckBox("chkSuppressFileClasses", "Suppress File Classes", "SuppressFileClasses");
  CheckBox("chkSuppressFileDirSizes", "Suppress File and Directory Sizes", "SuppressFileDirSizes");
  CheckBox("chkDisableLoggingDirNames", "No Directory Names", "DisableLoggingDirNames");
  CheckBox("chkDisableLoggingFileNames", "No File Names", "DisableLoggingFileNames");
  CheckBox("chkDisableLoggingJobHeader", "No Job Header", "DisableLoggingJobHeader");
  CheckBox("chkDisableLoggingJobSummary", "No Job Summary", "DisableLoggingJobSummary");
  Heading("Log File");
  ButtonEdit("txtLogFile", "LogFile")
      .Hint("Log file that robocopy writes")
      .BrowsesForFile("Select Log File", "Log Files (*.log)|*.log|All Files (*.*)|*.*", ".log");
  CheckBox("chkAppendToLogFile", "Append to Log File", "AppendToLogFile");
}
