#include "fileops/VekTouchFile.h"

#include <cmath>

#include "base/WindowsPath.h"
#include "coreapi/Vekfolderwalk.h"
#include "coreapi/Vekutils.h"
#include "platform/Clock.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "platform/Locale.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kHidden[] = {"DateTime", "FileCount", "DateTimeAsString"};

constexpr std::string_view kAliases[] = {
    "[Touch]",
    "TouchDate=Touch Date",
    "TouchTime=Touch Time",
    "Recurse=Recurse Directories",
    "TouchReadOnly=Touch Read Only",
    "DateTimeString=Date Time",
    "FileSpec=File Specification",
    "UseNow=Use Now",
};

constexpr std::string_view kHelp[] = {
    "TouchDate=Touch File Date",
    "TouchTime=Touch File Time",
    "Recurse=Recurse Directories",
    "TouchReadOnly=Touch Read Only Files",
    "FileSpec=File Specification (wildcards may be used)",
    "DateTimeString=Date Time",
    "UseNow=Use Now for Date Time",
};

}  // namespace

const ActionClass TCustomTouchFilesAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomTouchFilesAction",
    .actionName = "Touch File(s)",
    .helpTopicID = 980,
    .quickHelpFilename = "Plugins\\TouchFiles.html",
    .aliases = kAliases,
    .help = kHelp,
    .hiddenProperties = kHidden,
};

TCustomTouchFilesAction::TCustomTouchFilesAction(IVekActionHost& host)
    : TVekAction(host), DateTime(GetPlatform().clock->LocalNow()) {}

std::string TCustomTouchFilesAction::DateTimeAsString() const {
  Locale& locale = *GetPlatform().locale;
  return locale.ShortDate(DateTime) + ' ' + locale.LongTime(DateTime);
}

void TCustomTouchFilesAction::SetDateTimeAsString(std::string_view value) {
  if (const auto parsed = GetPlatform().locale->ParseDateTime(value)) DateTime = *parsed;
}

std::string TCustomTouchFilesAction::ShownDateTime() const {
  Locale& locale = *GetPlatform().locale;
  const std::string date = TouchDate ? locale.ShortDate(DateTime) : "";
  return std::string(Trim(TouchTime ? date + ' ' + locale.ShortTime(DateTime) : date));
}

bool TCustomTouchFilesAction::Validate(IVekActionValidationError& errors) {
  if (!FileSpec.empty()) return true;
  errors.AddError("File Spec", "File spec has not been set");
  return false;
}

bool TCustomTouchFilesAction::Execute() {
  if (UseNow) DateTime = GetPlatform().clock->LocalNow();
  std::string spec;
  try {
    spec = ExpandExpression(FileSpec);
  } catch (const std::exception& error) {
    return Refuse(error.what());
  }
  if (spec.empty()) return Refuse("File Spec is blank!");
  if (!TouchDate && !TouchTime) return Refuse(" Touch Date and TouchTime are not set, nothing to do");

  fileCount_ = 0;
  bool result = true;
  // The answer is that of the last folder, whatever came before.
  WalkFolders(SearchedFolder(GetPlatform(), spec), Recurse,
              [&](const std::string& folder) { result = ProcessFiles(folder, NamePart(spec)); });
  SendStatusMessage({"Processed : " + std::to_string(fileCount_) + " File(s)"});
  return result;
}

bool TCustomTouchFilesAction::Refuse(std::string_view text) const {
  CountError();
  SendStatusMessage({text});
  return false;
}

/// Touches the matches of one folder. The first file that fails ends the work in it.
bool TCustomTouchFilesAction::ProcessFiles(const std::string& folder, std::string_view mask) {
  try {
    constexpr uint32_t kPlainFiles = 0;
    SysResult found;
    const auto search =
        GetPlatform().finder->Open(folder + std::string(mask), kPlainFiles, FindDetail::Names, found);
    std::string path = folder;
    for (FoundEntry match; search->Next(match) && !StopSignalled();) {
      path.replace(folder.size(), std::string::npos, match.name);
      if (!TouchFile(path)) return Refuse("Error touching File : " + path);
    }
    ReportUnreadable(folder, *search);
    return true;
  } catch (const std::exception& error) {
    return Refuse(error.what());
  }
}

/// A read-only file that is not to be touched is left alone, which is no failure; likewise one that is gone.
bool TCustomTouchFilesAction::TouchFile(const std::string& path) {
  Entries& entries = *GetPlatform().entries;
  const LastWriteChange change = [this](TDateTime lastWrite) { return Touched(lastWrite); };
  SysResult touched = entries.ChangeLastWrite(path, change);
  if (!touched) {
    uint32_t attributes = 0;
    const bool known = entries.GetAttributes(path, attributes).ok;
    const bool isReadOnly = !known || (attributes & FileAttribute::ReadOnly) != 0;
    if (!isReadOnly) return false;
    if (!TouchReadOnly) return true;
    if (known) {
      entries.SetAttributes(path, attributes & ~FileAttribute::ReadOnly);
      touched = entries.ChangeLastWrite(path, change);
      const SysResult restored = entries.SetAttributes(path, attributes);
      if (!restored)
        ReportError("Cannot make read-only again " + path + ": " + SysErrorMessage(restored.code));
    }
  }
  if (touched) ++fileCount_;
  return touched.ok;
}

/// Date and time of day as asked, in steps of two seconds as file systems of old have them.
TDateTime TCustomTouchFilesAction::Touched(TDateTime lastWrite) const {
  constexpr double kStepsPerDay = 43200;
  // What stands a fraction of a millisecond below a step is meant to be on it.
  constexpr double kRounding = 1e-5;
  const TDateTime& date = TouchDate ? DateTime : lastWrite;
  const TDateTime& time = TouchTime ? DateTime : lastWrite;
  const double fraction = time.days - std::floor(time.days);
  return {std::floor(date.days) + std::floor(fraction * kStepsPerDay + kRounding) / kStepsPerDay};
}
