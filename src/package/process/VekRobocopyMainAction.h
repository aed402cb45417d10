#pragma once

#include <cstdint>
#include <string_view>

#include "process/VekRobocopyAction.h"

enum class TRobocopyAttribs {
  aReadOnly,
  aSystem,
  aNotContentIndexed,
  aArchive,
  aHidden,
  aTemporary,
  aCompressed,
  aOffline,
  aEncrypted,
};
template <>
inline constexpr auto kEnumNames<TRobocopyAttribs> = Names("TRobocopyAttribs", "aReadOnly", "aSystem",
                                                           "aNotContentIndexed", "aArchive", "aHidden",
                                                           "aTemporary", "aCompressed", "aOffline",
                                                           "aEncrypted");
using TRobocopyAttribFullSet = SetOf<TRobocopyAttribs>;

/// Those that a copy can be given.
enum class TRobocopyAttribsRange { aReadOnly, aSystem, aNotContentIndexed, aArchive, aHidden, aTemporary };
template <>
inline constexpr auto kEnumNames<TRobocopyAttribsRange> = Names("TRobocopyAttribsRange", "aReadOnly",
                                                                "aSystem", "aNotContentIndexed", "aArchive",
                                                                "aHidden", "aTemporary");
using TRobocopyAttribSet = SetOf<TRobocopyAttribsRange>;

enum class TRobocopyCopyFlags { cfData, cfAttrib, cfTimestamps, cfSecurity, cfOwnership, cfAuditing };
template <>
inline constexpr auto kEnumNames<TRobocopyCopyFlags> = Names("TRobocopyCopyFlags", "cfData", "cfAttrib",
                                                             "cfTimestamps", "cfSecurity", "cfOwnership",
                                                             "cfAuditing");
using TRobocopyCFSet = SetOf<TRobocopyCopyFlags>;

/// What the actions that copy have in common: which files and folders are meant.
class TVekRobocopyMainAction : public TVekRobocopyAction {
 public:
  static const ActionClass kClass;
  using TVekRobocopyAction::TVekRobocopyAction;

  bool DoIncludeUsingAttrib = false;
  TRobocopyAttribFullSet IncludeFilesAttrib;
  bool OnlyArchiveFilesAndClearArchiveBit = false;
  bool IncludeTaggedSame = false;
  bool IncludeTaggedTweaked = false;
  TRobocopyAttribFullSet ExcludeFilesAttrib;
  bool ExcludeJunctionPoints = false;
  StringList ExcludeFiles, ExcludeDirs;
  bool ExcludeTaggedChanged = false;
  bool ExcludeTaggedNewer = false;
  bool ExcludeTaggedOlder = false;
  bool ExcludeTaggedExtra = false;
  bool ExcludeTaggedLonely = false;

  // The value counts when the property before it is set; of an age, days or a date.
  bool ExcludeLargeFiles = false;
  uint32_t MaxFileSizeBytes = 0;
  bool ExcludeSmallFiles = false;
  uint32_t MinFileSizeBytes = 0;
  bool ExcludeOldFiles = false;
  uint32_t MaxAgeDays = 0;
  TDateTime MaxAgeDate;
  bool UseMaxAgeDays = false;
  bool ExcludeNewFiles = false;
  uint32_t MinAgeDays = 0;
  TDateTime MinAgeDate;
  bool UseMinAgeDays = false;
  bool ExcludeLADOldFiles = false;  // LAD: by the date of the last access
  uint32_t MaxLADDays = 0;
  TDateTime MaxLADDate;
  bool UseMaxLADDays = false;
  bool ExcludeLADNewFiles = false;
  uint32_t MinLADDays = 0;
  TDateTime MinLADDate;
  bool UseMinLADDays = false;

  bool OnlyListFiles = false;
  bool WaitForSharesToBeDefined = false;
  uint32_t DelayToFreeUpBandwidth = 0;  // milliseconds between packets
  bool IncludeSubDirs = false;
  bool IncludeEmptyDirs = false;

  static constexpr auto kSharedRows = Extended(
      TVekRobocopyAction::kSharedRows,
      Published<&TVekRobocopyMainAction::DoIncludeUsingAttrib>("DoIncludeUsingAttrib")
          .Means("Copy only files with one of the attributes in IncludeFilesAttrib"),
      Published<&TVekRobocopyMainAction::IncludeFilesAttrib>("IncludeFilesAttrib")
          .Means("Those attributes (/IA)"),
      Published<&TVekRobocopyMainAction::OnlyArchiveFilesAndClearArchiveBit>(
          "OnlyArchiveFilesAndClearArchiveBit")
          .Means("Copy only files with the archive attribute, and clear it in the source (/M)"),
      Published<&TVekRobocopyMainAction::IncludeTaggedSame>("IncludeTaggedSame")
          .Means("Copy files that are the same too (/IS)"),
      Published<&TVekRobocopyMainAction::IncludeTaggedTweaked>("IncludeTaggedTweaked")
          .Means("Copy files too whose attributes alone differ (/IT)"),
      Published<&TVekRobocopyMainAction::ExcludeFilesAttrib>("ExcludeFilesAttrib")
          .Means("Leave out files with one of these attributes (/XA)"),
      Published<&TVekRobocopyMainAction::ExcludeJunctionPoints>("ExcludeJunctionPoints")
          .Means("Leave out junction points (/XJ)"),
      Published<&TVekRobocopyMainAction::ExcludeFiles>("ExcludeFiles", TextRole::Wildcard)
          .Means("Files to leave out: names, paths or wildcards, one a line (/XF)"),
      Published<&TVekRobocopyMainAction::ExcludeDirs>("ExcludeDirs", TextRole::Folder)
          .Means("Folders to leave out: names or paths, one a line (/XD)"),
      Published<&TVekRobocopyMainAction::ExcludeTaggedChanged>("ExcludeTaggedChanged")
          .Means("Leave out files of the same time and another size (/XC)"),
      Published<&TVekRobocopyMainAction::ExcludeTaggedNewer>("ExcludeTaggedNewer")
          .Means("Leave out files that are newer than in the destination (/XN)"),
      Published<&TVekRobocopyMainAction::ExcludeTaggedOlder>("ExcludeTaggedOlder")
          .Means("Leave out files that are older than in the destination (/XO)"),
      Published<&TVekRobocopyMainAction::ExcludeTaggedExtra>("ExcludeTaggedExtra")
          .Means("Leave alone what is in the destination only (/XX)"),
      Published<&TVekRobocopyMainAction::ExcludeTaggedLonely>("ExcludeTaggedLonely")
          .Means("Leave out what is in the source only (/XL)"),
      Published<&TVekRobocopyMainAction::ExcludeLargeFiles>("ExcludeLargeFiles")
          .Means("Leave out files above MaxFileSizeBytes"),
      Published<&TVekRobocopyMainAction::MaxFileSizeBytes>("MaxFileSizeBytes")
          .Means("The largest size to copy, in bytes; 0 for no limit (/MAX)"),
      Published<&TVekRobocopyMainAction::ExcludeSmallFiles>("ExcludeSmallFiles")
          .Means("Leave out files below MinFileSizeBytes"),
      Published<&TVekRobocopyMainAction::MinFileSizeBytes>("MinFileSizeBytes")
          .Means("The smallest size to copy, in bytes; 0 for no limit (/MIN)"),
      Published<&TVekRobocopyMainAction::ExcludeOldFiles>("ExcludeOldFiles")
          .Means("Leave out files that are older than MaxAgeDays or MaxAgeDate (/MAXAGE)"),
      Published<&TVekRobocopyMainAction::MaxAgeDays>("MaxAgeDays")
          .Means("The age in days, when UseMaxAgeDays is set"),
      Published<&TVekRobocopyMainAction::MaxAgeDate>("MaxAgeDate")
          .Means("The date, when UseMaxAgeDays is off"),
      Published<&TVekRobocopyMainAction::UseMaxAgeDays>("UseMaxAgeDays")
          .Means("Count in days instead of from a date"),
      Published<&TVekRobocopyMainAction::ExcludeNewFiles>("ExcludeNewFiles")
          .Means("Leave out files that are newer than MinAgeDays or MinAgeDate (/MINAGE)"),
      Published<&TVekRobocopyMainAction::MinAgeDays>("MinAgeDays")
          .Means("The age in days, when UseMinAgeDays is set"),
      Published<&TVekRobocopyMainAction::MinAgeDate>("MinAgeDate")
          .Means("The date, when UseMinAgeDays is off"),
      Published<&TVekRobocopyMainAction::UseMinAgeDays>("UseMinAgeDays")
          .Means("Count in days instead of from a date"),
      Published<&TVekRobocopyMainAction::ExcludeLADOldFiles>("ExcludeLADOldFiles")
          .Means("Leave out files not used since MaxLADDays or MaxLADDate (/MAXLAD)"),
      Published<&TVekRobocopyMainAction::MaxLADDays>("MaxLADDays")
          .Means("The days since the last access, when UseMaxLADDays is set"),
      Published<&TVekRobocopyMainAction::MaxLADDate>("MaxLADDate")
          .Means("The date, when UseMaxLADDays is off"),
      Published<&TVekRobocopyMainAction::UseMaxLADDays>("UseMaxLADDays")
          .Means("Count in days instead of from a date"),
      Published<&TVekRobocopyMainAction::ExcludeLADNewFiles>("ExcludeLADNewFiles")
          .Means("Leave out files used since MinLADDays or MinLADDate (/MINLAD)"),
      Published<&TVekRobocopyMainAction::MinLADDays>("MinLADDays")
          .Means("The days since the last access, when UseMinLADDays is set"),
      Published<&TVekRobocopyMainAction::MinLADDate>("MinLADDate")
          .Means("The date, when UseMinLADDays is off"),
      Published<&TVekRobocopyMainAction::UseMinLADDays>("UseMinLADDays")
          .Means("Count in days instead of from a date"),
      Published<&TVekRobocopyMainAction::OnlyListFiles>("OnlyListFiles")
          .Means("List what would be done, and do nothing (/L)"),
      Published<&TVekRobocopyMainAction::WaitForSharesToBeDefined>("WaitForSharesToBeDefined")
          .Means("Wait for share names to be defined (/TBD)"),
      Published<&TVekRobocopyMainAction::DelayToFreeUpBandwidth>("DelayToFreeUpBandwidth")
          .Means("Milliseconds between packets, to leave room on a slow line; 0 for none (/IPG)"),
      Published<&TVekRobocopyMainAction::IncludeSubDirs>("IncludeSubDirs").Means("Copy sub-folders too (/S)"),
      Published<&TVekRobocopyMainAction::IncludeEmptyDirs>("IncludeEmptyDirs")
          .Means("Together with IncludeSubDirs: empty ones too (/E)"));

 protected:
  bool GetCommandLine(ICommandLineBuilder& builder) override;

 private:
  void AddFilters(ICommandLineBuilder& builder) const;
  bool AddExclusions(ICommandLineBuilder& builder, std::string_view switchText, std::string_view title,
                     const StringList& names) const;
};

/// "Robocopy": copies.
class TCustomRobocopyCopyAction : public TVekRobocopyMainAction {
 public:
  static const ActionClass kClass;
  explicit TCustomRobocopyCopyAction(IVekActionHost& host);

  TRobocopyCFSet CopyFlags{TRobocopyCopyFlags::cfData, TRobocopyCopyFlags::cfAttrib,
                           TRobocopyCopyFlags::cfTimestamps};
  TRobocopyAttribSet SetAttribInCopiedFiles, TurnOffAttribInCopiedFiles;
  bool FATFileNames = false;
  bool FATFileTimes = false;

 protected:
  bool GetCommandLine(ICommandLineBuilder& builder) override;
};

class TVekRobocopyCopyAction final
    : public PublishedAction<TVekRobocopyCopyAction, TCustomRobocopyCopyAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekRobocopyCopyAction";
  static constexpr auto kPublished =
      Extended(TVekRobocopyMainAction::kSharedRows,
               Published<&TCustomRobocopyCopyAction::CopyFlags>("CopyFlags")
                   .Means("What is copied of a file (/COPY); the default gives /COPY:DAD"),
               Published<&TCustomRobocopyCopyAction::SetAttribInCopiedFiles>("SetAttribInCopiedFiles")
                   .Means("Attributes that copied files are given (/A+)"),
               Published<&TCustomRobocopyCopyAction::TurnOffAttribInCopiedFiles>("TurnOffAttribInCopiedFiles")
                   .Means("Attributes that are taken from copied files (/A-)"),
               Published<&TCustomRobocopyCopyAction::FATFileNames>("FATFileNames")
                   .Means("Create files with names of eight and three characters (/FAT)"),
               Published<&TCustomRobocopyCopyAction::FATFileTimes>("FATFileTimes")
                   .Means("Take times for equal that are two seconds apart (/FFT)"));
};

/// "Robocopy Mirror": makes the destination what the source is.
class TCustomRobocopyMirrorAction : public TVekRobocopyMainAction {
 public:
  static const ActionClass kClass;
  using TVekRobocopyMainAction::TVekRobocopyMainAction;

 protected:
  bool GetCommandLine(ICommandLineBuilder& builder) override;
};

class TVekRobocopyMirrorAction final
    : public PublishedAction<TVekRobocopyMirrorAction, TCustomRobocopyMirrorAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekRobocopyMirrorAction";
  static constexpr auto kPublished = TVekRobocopyMainAction::kSharedRows;
};

/// "Robocopy Move": moves files, and their folders too unless the tree is to be left.
class TCustomRobocopyMoveAction : public TVekRobocopyMainAction {
 public:
  static const ActionClass kClass;
  using TVekRobocopyMainAction::TVekRobocopyMainAction;

  bool PreserveSourceDirTree = false;

 protected:
  bool GetCommandLine(ICommandLineBuilder& builder) override;
};

class TVekRobocopyMoveAction final
    : public PublishedAction<TVekRobocopyMoveAction, TCustomRobocopyMoveAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekRobocopyMoveAction";
  static constexpr auto kPublished =
      Extended(TVekRobocopyMainAction::kSharedRows,
               Published<&TCustomRobocopyMoveAction::PreserveSourceDirTree>("PreserveSourceDirTree")
                   .Means("Move the files and leave the folders (/MOV instead of /MOVE)"));
};
