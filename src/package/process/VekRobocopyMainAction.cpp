#include "process/VekRobocopyMainAction.h"

#include "base/WindowsPath.h"
#include "coreapi/Vekutils.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Platform.h"
#include "process/VekSwitches.h"

namespace {

using TMain = TVekRobocopyMainAction;

// By the order of their values.
constexpr std::string_view kAttributeLetters = "RSNAHTCOE";

// Two of these letters stand for what their neighbours do; what runs the command line is used to it.
constexpr struct {
  TRobocopyCopyFlags flag;
  char letter;
} kCopyLetters[] = {
    {TRobocopyCopyFlags::cfData, 'D'},       {TRobocopyCopyFlags::cfAttrib, 'A'},
    {TRobocopyCopyFlags::cfTimestamps, 'D'}, {TRobocopyCopyFlags::cfSecurity, 'S'},
    {TRobocopyCopyFlags::cfOwnership, 'O'},  {TRobocopyCopyFlags::cfAuditing, 'A'},
};

constexpr Switch<TMain> kExclusionSwitches[] = {
    {&TMain::OnlyArchiveFilesAndClearArchiveBit, "/M"},
    {&TMain::ExcludeJunctionPoints, "/XJ"},
    {&TMain::ExcludeTaggedChanged, "/XC"},
    {&TMain::ExcludeTaggedNewer, "/XN"},
    {&TMain::ExcludeTaggedOlder, "/XO"},
    {&TMain::ExcludeTaggedExtra, "/XX"},
    {&TMain::ExcludeTaggedLonely, "/XL"},
};

constexpr Switch<TMain> kLastSwitches[] = {
    {&TMain::IncludeTaggedSame, "/IS"},
    {&TMain::IncludeTaggedTweaked, "/IT"},
    {&TMain::OnlyListFiles, "/L"},
    {&TMain::WaitForSharesToBeDefined, "/TBD"},
};

constexpr struct {
  bool TMain::*wanted;
  uint32_t TMain::*bytes;
  std::string_view text;
} kSizeLimits[] = {
    {&TMain::ExcludeLargeFiles, &TMain::MaxFileSizeBytes, "/MAX:"},
    {&TMain::ExcludeSmallFiles, &TMain::MinFileSizeBytes, "/MIN:"},
};

constexpr struct {
  bool TMain::*wanted;
  bool TMain::*byDays;
  uint32_t TMain::*days;
  TDateTime TMain::*date;
  std::string_view text;
} kAgeLimits[] = {
    {&TMain::ExcludeOldFiles, &TMain::UseMaxAgeDays, &TMain::MaxAgeDays, &TMain::MaxAgeDate, "/MAXAGE:"},
    {&TMain::ExcludeNewFiles, &TMain::UseMinAgeDays, &TMain::MinAgeDays, &TMain::MinAgeDate, "/MINAGE:"},
    {&TMain::ExcludeLADOldFiles, &TMain::UseMaxLADDays, &TMain::MaxLADDays, &TMain::MaxLADDate, "/MAXLAD:"},
    {&TMain::ExcludeLADNewFiles, &TMain::UseMinLADDays, &TMain::MinLADDays, &TMain::MinLADDate, "/MINLAD:"},
};

/// "20070305"
std::string CompactDate(TDateTime date) {
  return ReplaceAll(std::string_view(ToIso8601(date)).substr(0, sizeof "2007-03-05" - 1), "-", "");
}

void AddWithNumber(ICommandLineBuilder& builder, std::string_view text, uint32_t number) {
  AddSwitch(builder, std::string(text) + std::to_string(number));
}

/// One switch for each member, with its letter.
template <class Member>
void AddForEach(ICommandLineBuilder& builder, std::string_view text, SetOf<Member> members) {
  for (size_t ordinal = 0; ordinal < kEnumNames<Member>.values.size(); ++ordinal) {
    if (members.Has(static_cast<Member>(ordinal))) {
      AddSwitch(builder, std::string(text) + kAttributeLetters[ordinal]);
    }
  }
}

/// What a purge and a move go through, so that of a link the folder counts that it leads to.
std::string TreeBehind(Entries& entries, const std::string& folder) {
  uint32_t attributes = 0;
  const bool isLink =
      entries.GetAttributes(folder, attributes) && (attributes & FileAttribute::ReparsePoint) != 0;
  return isLink ? WithTrailingDelimiter(folder, '/') : folder;
}

}  // namespace

const ActionClass TVekRobocopyMainAction::kClass{.inherited = &TVekRobocopyAction::kClass,
                                                 .className = "TVekRobocopyMainAction"};

bool TVekRobocopyMainAction::GetCommandLine(ICommandLineBuilder& builder) {
  if (!TVekRobocopyAction::GetCommandLine(builder)) return false;
  if (IncludeSubDirs) AddSwitch(builder, "/S");
  if (IncludeSubDirs && IncludeEmptyDirs) AddSwitch(builder, "/E");
  AddFilters(builder);
  if (!AddExclusions(builder, "/XF ", "Exclude file: ", ExcludeFiles)) return false;
  if (!AddExclusions(builder, "/XD ", "Exclude dir: ", ExcludeDirs)) return false;
  AddSwitches(builder, *this, kLastSwitches);
  if (DelayToFreeUpBandwidth > 0) AddWithNumber(builder, "/IPG:", DelayToFreeUpBandwidth);
  return true;
}

/// What is chosen by attributes, classes, size and age.
void TVekRobocopyMainAction::AddFilters(ICommandLineBuilder& builder) const {
  if (DoIncludeUsingAttrib) AddForEach(builder, "/IA:", IncludeFilesAttrib);
  AddForEach(builder, "/XA:", ExcludeFilesAttrib);
  AddSwitches(builder, *this, kExclusionSwitches);
  for (const auto& limit : kSizeLimits) {
    if (this->*limit.wanted && this->*limit.bytes > 0) AddWithNumber(builder, limit.text, this->*limit.bytes);
  }
  for (const auto& limit : kAgeLimits) {
    if (!(this->*limit.wanted)) continue;
    AddSwitch(builder, std::string(limit.text) + (this->*limit.byDays ? std::to_string(this->*limit.days)
                                                                      : CompactDate(this->*limit.date)));
  }
}

/// All names in one argument.
bool TVekRobocopyMainAction::AddExclusions(ICommandLineBuilder& builder, std::string_view switchText,
                                           std::string_view title, const StringList& names) const {
  std::string list, expanded;
  for (const std::string& name : names) {
    if (!TryExpandExpression(std::string(title) + name, name, expanded, false)) return false;
    if (!list.empty()) list += ' ';
    list += DoubleQuoteString(expanded, true);
  }
  if (!list.empty()) builder.AddArgument(switchText, list, ArgumentQuoting::AsItStands);
  return true;
}

const ActionClass TCustomRobocopyCopyAction::kClass{.inherited = &TVekRobocopyMainAction::kClass,
                                                    .className = "TCustomRobocopyCopyAction",
                                                    .quickHelpFilename = "Plugins\\RobocopyCopy.html"};

TCustomRobocopyCopyAction::TCustomRobocopyCopyAction(IVekActionHost& host) : TVekRobocopyMainAction(host) {
  IncludeSubDirs = true;
}

bool TCustomRobocopyCopyAction::GetCommandLine(ICommandLineBuilder& builder) {
  if (!TVekRobocopyMainAction::GetCommandLine(builder)) return false;
  std::string flags;
  for (const auto& [flag, letter] : kCopyLetters) {
    if (CopyFlags.Has(flag)) flags += letter;
  }
  AddSwitch(builder, "/COPY:" + flags);
  AddForEach(builder, "/A+:", SetAttribInCopiedFiles);
  AddForEach(builder, "/A-:", TurnOffAttribInCopiedFiles);
  if (FATFileTimes) AddSwitch(builder, "/FFT");
  if (FATFileNames) AddSwitch(builder, "/FAT");
  return true;
}

const ActionClass TCustomRobocopyMirrorAction::kClass{.inherited = &TVekRobocopyMainAction::kClass,
                                                      .className = "TCustomRobocopyMirrorAction",
                                                      .actionName = "Robocopy Mirror",
                                                      .quickHelpFilename = "Plugins\\RobocopyMirror.html"};

bool TCustomRobocopyMirrorAction::GetCommandLine(ICommandLineBuilder& builder) {
  if (!TVekRobocopyMainAction::GetCommandLine(builder)) return false;
  AddSwitch(builder, "/MIR");
  return OnlyListFiles || MayRemoveTree(TreeBehind(*GetPlatform().entries, Destination()));
}

const ActionClass TCustomRobocopyMoveAction::kClass{.inherited = &TVekRobocopyMainAction::kClass,
                                                    .className = "TCustomRobocopyMoveAction",
                                                    .actionName = "Robocopy Move",
                                                    .quickHelpFilename = "Plugins\\RobocopyMove.html"};

bool TCustomRobocopyMoveAction::GetCommandLine(ICommandLineBuilder& builder) {
  if (!TVekRobocopyMainAction::GetCommandLine(builder)) return false;
  AddSwitch(builder, PreserveSourceDirTree ? "/MOV" : "/MOVE");
  const bool leavesTree = PreserveSourceDirTree && !IncludeSubDirs;
  return leavesTree || OnlyListFiles || MayRemoveTree(TreeBehind(*GetPlatform().entries, Source()));
}
