#include "interaction/VekDateTimeAction.h"

#include <memory>

#include "interaction/Vekdatetimeformat.h"
#include "platform/Clock.h"
#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kAliases[] = {
    "[Get Date/Time]",    "VekVariable=Variable", "DateTimeFormat=Date/Time Format", "DateTimeSource=Source",
    "FileName=File Name", "UseUTC=Use UTC",       "OffsetDays=Offset in Days",
};

constexpr std::string_view kHelp[] = {
    "VekVariable=The variable that receives the date and time",
    "DateTimeFormat=Letters: d, m, y, h, n (minutes), s, z (milliseconds), am/pm; a blank format stores a "
    "date and time instead of a text",
    "DateTimeSource=The present date and time, or those of the last write to a file",
    "FileName=The file",
    "UseUTC=Universal time instead of local time",
    "OffsetDays=Days to add",
};

}  // namespace

const ActionClass TCustomDateTimeAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomDateTimeAction",
    .actionName = "Get DateTime",
    .helpTopicID = 2440,
    .quickHelpFilename = "Plugins\\GetDateTime.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomDateTimeAction::Validate(IVekActionValidationError& errors) {
  const bool lacksFile = DateTimeSource == TDateTimeSource::dsFile && FileName.empty();
  if (VekVariable.empty()) errors.AddError("Variable", "The variable name has not been set");
  if (lacksFile) errors.AddError("File Name", "Filename has not been set");
  return !VekVariable.empty() && !lacksFile;
}

bool TCustomDateTimeAction::Execute() {
  std::string variable, format;
  TDateTime time;
  if (!ExpandVariable(VekVariable, variable) ||
      !TryExpandExpression("Date/Time Format", DateTimeFormat, format, false) || !TakeTime(time)) {
    return false;
  }
  if (!AddDays(time)) return false;
  const Variant value = Trim(format).empty() ? Variant(time) : Variant(FormatDateTime(time, format));
  Store(variable, value);
  SendMessage("Date and time : " + VariantToText(value));
  return true;
}

/// A date has a year from 1 to 9999.
bool TCustomDateTimeAction::AddDays(TDateTime& time) const {
  constexpr double kFirst = -693593, kEnd = 2958466;
  time.days += OffsetDays;
  if (time.days >= kFirst && time.days < kEnd) return true;
  SendMessage("Offset in Days: " + std::to_string(OffsetDays) + " leads out of the calendar");
  return false;
}

bool TCustomDateTimeAction::TakeTime(TDateTime& time) const {
  if (DateTimeSource == TDateTimeSource::dsFile) return TakeFileTime(time);
  Clock& clock = *GetPlatform().clock;
  time = UseUTC ? clock.UtcNow() : clock.LocalNow();
  return true;
}

bool TCustomDateTimeAction::TakeFileTime(TDateTime& time) const {
  std::string path;
  if (!TryExpandExpression("File Name", FileName, path, true)) return false;
  if (!GetPlatform().entries->FileExists(path)) {
    SendMessage("ERROR - File missing: " + path);
    return false;
  }
  std::unique_ptr<OpenFile> file;
  SysResult read = GetPlatform().contents->Open(path, OpenMode::Read, ShareMode::DenyNone, file);
  if (read) read = file->GetLastWrite(time);
  if (!read) SendMessage("Error reading date and time of " + path + " : " + SysErrorMessage(read.code));
  if (read && UseUTC) time = GetPlatform().clock->ToUtc(time);
  return read.ok;
}
