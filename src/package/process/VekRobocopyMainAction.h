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

  static constexpr auto kSharedRows =
      Extended(TVekRobocopyAction::kSharedRows,
               Published<&TVekRobocopyMainAction::DoIncludeUsingAttrib>("DoIncludeUsingAttrib"),
               Published<&TVekRobocopyMainAction::IncludeFilesAttrib>("IncludeFilesAttrib"),
               Published<&TVekRobocopyMainAction::OnlyArchiveFilesAndClearArchiveBit>(
                   "OnlyArchiveFilesAndClearArchiveBit"),
               Published<&TVekRobocopyMainAction::IncludeTaggedSame>("IncludeTaggedSame"),
               Published<&TVekRobocopyMainAction::IncludeTaggedTweaked>("IncludeTaggedTweaked"),
               Published<&TVekRobocopyMainAction::ExcludeFilesAttrib>("ExcludeFilesAttrib"),
               Published<&TVekRobocopyMainAction::ExcludeJunctionPoints>("ExcludeJunctionPoints"),
               Published<&TVekRobocopyMainAction::ExcludeFiles>("ExcludeFiles", TextRole::Wildcard),
               Published<&TVekRobocopyMainAction::ExcludeDirs>("ExcludeDirs", TextRole::Folder),
               Published<&TVekRobocopyMainAction::ExcludeTaggedChanged>("ExcludeTaggedChanged"),
               Published<&TVekRobocopyMainAction::ExcludeTaggedNewer>("ExcludeTaggedNewer"),
               Published<&TVekRobocopyMainAction::ExcludeTaggedOlder>("ExcludeTaggedOlder"),
               Published<&TVekRobocopyMainAction::ExcludeTaggedExtra>("ExcludeTaggedExtra"),
               Published<&TVekRobocopyMainAction::ExcludeTaggedLonely>("ExcludeTaggedLonely"),
               Published<&TVekRobocopyMainAction::ExcludeLargeFiles>("ExcludeLargeFiles"),
               Published<&TVekRobocopyMainAction::MaxFileSizeBytes>("MaxFileSizeBytes"),
               Published<&TVekRobocopyMainAction::ExcludeSmallFiles>("ExcludeSmallFiles"),
               Published<&TVekRobocopyMainAction::MinFileSizeBytes>("MinFileSizeBytes"),
               Published<&TVekRobocopyMainAction::ExcludeOldFiles>("ExcludeOldFiles"),
               Published<&TVekRobocopyMainAction::MaxAgeDays>("MaxAgeDays"),
               Published<&TVekRobocopyMainAction::MaxAgeDate>("MaxAgeDate"),
               Published<&TVekRobocopyMainAction::UseMaxAgeDays>("UseMaxAgeDays"),
               Published<&TVekRobocopyMainAction::ExcludeNewFiles>("ExcludeNewFiles"),
               Published<&TVekRobocopyMainAction::MinAgeDays>("MinAgeDays"),
               Published<&TVekRobocopyMainAction::MinAgeDate>("MinAgeDate"),
               Published<&TVekRobocopyMainAction::UseMinAgeDays>("UseMinAgeDays"),
               Published<&TVekRobocopyMainAction::ExcludeLADOldFiles>("ExcludeLADOldFiles"),
               Published<&TVekRobocopyMainAction::MaxLADDays>("MaxLADDays"),
               Published<&TVekRobocopyMainAction::MaxLADDate>("MaxLADDate"),
               Published<&TVekRobocopyMainAction::UseMaxLADDays>("UseMaxLADDays"),
               Published<&TVekRobocopyMainAction::ExcludeLADNewFiles>("ExcludeLADNewFiles"),
               Published<&TVekRobocopyMainAction::MinLADDays>("MinLADDays"),
               Published<&TVekRobocopyMainAction::MinLADDate>("MinLADDate"),
               Published<&TVekRobocopyMainAction::UseMinLADDays>("UseMinLADDays"),
               Published<&TVekRobocopyMainAction::OnlyListFiles>("OnlyListFiles"),
               Published<&TVekRobocopyMainAction::WaitForSharesToBeDefined>("WaitForSharesToBeDefined"),
               Published<&TVekRobocopyMainAction::DelayToFreeUpBandwidth>("DelayToFreeUpBandwidth"),
               Published<&TVekRobocopyMainAction::IncludeSubDirs>("IncludeSubDirs"),
               Published<&TVekRobocopyMainAction::IncludeEmptyDirs>("IncludeEmptyDirs"));

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
  static constexpr auto kPublished = Extended(
      TVekRobocopyMainAction::kSharedRows, Published<&TCustomRobocopyCopyAction::CopyFlags>("CopyFlags"),
      Published<&TCustomRobocopyCopyAction::SetAttribInCopiedFiles>("SetAttribInCopiedFiles"),
      Published<&TCustomRobocopyCopyAction::TurnOffAttribInCopiedFiles>("TurnOffAttribInCopiedFiles"),
      Published<&TCustomRobocopyCopyAction::FATFileNames>("FATFileNames"),
      Published<&TCustomRobocopyCopyAction::FATFileTimes>("FATFileTimes"));
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
               Published<&TCustomRobocopyMoveAction::PreserveSourceDirTree>("PreserveSourceDirTree"));
};
