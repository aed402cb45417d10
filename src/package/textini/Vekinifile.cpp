#include "textini/Vekinifile.h"

#include "base/WindowsPath.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Platform.h"
#include "textini/Vekconversions.h"
#include "textini/Vekinifileobject.h"

namespace {

// These stand for a text that is no integer, and cannot be integers themselves.
constexpr int32_t kNoDefaultInteger = -99098700;
constexpr int32_t kNoNewInteger = -990234;

constexpr std::string_view kCannotRead = "Unable to Read from Ini File : ";
constexpr std::string_view kCannotWrite = "Unable to Write to Ini File : ";

constexpr std::string_view kAliases[] = {
    "[Ini File]", "IniFile=Ini File", "Section=Section", "ValueName=Value Name", "ValueType=Value Type",
};
constexpr std::string_view kHelp[] = {
    "IniFile=The fully qualified path to the ini file.",
    "Section=The ini file section to read or write",
    "ValueName=The name of the value to read/write",
    "ValueType=The type of the value to read/write",
};

constexpr std::string_view kReadAliases[] = {
    "[Ini File]",
    "VariableName=Variable Name",
    "DefaultValue=Default Value",
};
constexpr std::string_view kReadHelp[] = {
    "VariableName=Name of the Variable which will store the ini file value",
    "DefaultValue=The default value to apply if the value is not present in the ini file.",
};

constexpr std::string_view kWriteAliases[] = {
    "[Ini File]",
    "NewValue=New Value",
    "AllowCreate=AllowCreate",
};
constexpr std::string_view kWriteHelp[] = {
    "NewValue=New Value to write to the ini file. Can include vekmatser variables",
    "AllowCreate=Allow the Ini File to be created if it does not exist.",
};

std::string Line(std::string_view complaint, const std::string& text) {
  return std::string(complaint).append(text);
}

}  // namespace

const ActionClass TCustomIniFileAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomIniFileAction",
    .aliases = kAliases,
    .help = kHelp,
};

const ActionClass TCustomReadIniFileAction::kClass{
    .inherited = &TCustomIniFileAction::kClass,
    .className = "TCustomReadIniFileAction",
    .actionName = "Read Ini File",
    .helpTopicID = 930,
    .quickHelpFilename = "Plugins\\ReadIniFile.html",
    .aliases = kReadAliases,
    .help = kReadHelp,
};

const ActionClass TCustomWriteIniFileAction::kClass{
    .inherited = &TCustomIniFileAction::kClass,
    .className = "TCustomWriteIniFileAction",
    .actionName = "Write Ini File",
    .helpTopicID = 940,
    .quickHelpFilename = "Plugins\\WriteIniFile.html",
    .aliases = kWriteAliases,
    .help = kWriteHelp,
};

bool TCustomIniFileAction::Validate(IVekActionValidationError& errors) {
  const struct {
    const WideString& property;
    std::string_view title, message;
  } checks[] = {
      {IniFile, "Ini File", "Ini file has not been set"},
      {Section, "Section", "The section has not been set"},
      {ValueName, "Value Name", "The value name has not been set"},
  };
  bool complete = true;
  for (const auto& check : checks) {
    if (!check.property.empty()) continue;
    errors.AddError(check.title, check.message);
    complete = false;
  }
  return complete;
}

bool TCustomReadIniFileAction::Validate(IVekActionValidationError& errors) {
  const bool complete = TCustomIniFileAction::Validate(errors);
  if (!VariableName.empty()) return complete;
  errors.AddError("Variable", "The variable name has not been set");
  return false;
}

std::optional<std::string> TCustomIniFileAction::Expand(std::string_view complaint,
                                                        const WideString& property) const {
  std::optional<std::string> text;
  AttemptOrReport(complaint, property, "", [&] { text = ExpandExpression(property); });
  return text;
}

/// A bare name is refused, because the system would look for it in a folder of its own.
std::optional<std::string> TCustomIniFileAction::ExpandPath(std::string_view complaint) const {
  auto path = Expand(complaint, IniFile);
  if (!path || !FolderPart(*path).empty()) return path;
  SendStatusMessage({"No path to the Ini File specified!"});
  return {};
}

std::optional<std::string> TCustomIniFileAction::ExpandSection(std::string_view complaint) const {
  const auto section = Expand(complaint, Section);
  if (!section) return {};
  if (const std::string_view name = Trim(*section); !name.empty()) return std::string(name);
  SendStatusMessage({Line(complaint, Section), "Section Name not specified"});
  return {};
}

bool TCustomReadIniFileAction::Execute() {
  const auto entry = ExpandEntry();
  if (!entry) return false;
  const auto defaultText = Expand("Unable to use default Value  : ", DefaultValue);
  if (!defaultText) return false;
  const auto defaultValue = TypedDefault(*defaultText);
  if (!defaultValue) return false;
  return AttemptOrReport(kCannotRead, entry->path, "",
                         [&] { ReadEntry(*entry, *defaultText, *defaultValue); });
}

std::optional<TCustomIniFileAction::Entry> TCustomReadIniFileAction::ExpandEntry() const {
  auto path = ExpandPath(kCannotRead);
  if (!path) return {};
  auto name = Expand("Unable to Read Value from Ini File : ", ValueName);
  if (!name) return {};
  auto section = ExpandSection("Unable to Read from Section : ");
  if (!section) return {};
  return Entry{std::move(*path), std::move(*section), std::move(*name)};
}

/// The default as a value of the type; nothing after reporting that it is none.
std::optional<Variant> TCustomReadIniFileAction::TypedDefault(const std::string& text) const {
  switch (ValueType) {
    case TIniValueType::vtString:
      return text;
    case TIniValueType::vtBool:
      if (SameText(Trim(text), "true")) return true;
      if (SameText(Trim(text), "false")) return false;
      SendMessage("Default Value is not True or False and the Value Type is Boolean");
      return {};
    case TIniValueType::vtInteger:
      const int32_t number = StringToInteger(text).value_or(kNoDefaultInteger);
      if (number != kNoDefaultInteger) return int64_t{number};
      SendMessage("Default Value : " + text + " : is not an integer and the Value Type is Integer");
      return {};
  }
  return {};
}

void TCustomReadIniFileAction::ReadEntry(const Entry& entry, const std::string& defaultText,
                                         const Variant& defaultValue) const {
  const TIniFile ini(GetPlatform(), entry.path);
  const auto message = CreateStatusMessage();
  message->AddLine("Reading from IniFile: " + entry.path + " Section : " + entry.section +
                   " ValueName: " + entry.name + " Default Value : " + defaultText);
  Variant value;
  if (const bool* truth = std::get_if<bool>(&defaultValue)) {
    value = ini.ReadBool(entry.section, entry.name, *truth);
  } else if (const int64_t* number = std::get_if<int64_t>(&defaultValue)) {
    value = int64_t{ini.ReadInteger(entry.section, entry.name, static_cast<int32_t>(*number))};
  } else {
    value = ini.ReadString(entry.section, entry.name, defaultText);
  }
  SetVariable(VariableName, value);
  message->AddLine("New Value : " + VariantToText(value));
  SendStatusMessage(message);
}

bool TCustomWriteIniFileAction::Execute() {
  constexpr std::string_view kCannotWriteValue = "Unable to Write Value to Ini File : ";
  const auto path = ExpandPath(kCannotWrite);
  if (!path) return false;
  const auto value = Expand(kCannotWriteValue, NewValue);
  if (!value) return false;
  const auto name = Expand(kCannotWriteValue, ValueName);
  if (!name) return false;
  const auto section = ExpandSection("Unable to Write to Section : ");
  if (!section) return false;

  const bool fileExists = GetPlatform().entries->FileExists(*path);
  if (!fileExists && !AllowCreate) {
    SendStatusMessage({Line(kCannotWrite, *path), "File does not Exist!"});
    return false;
  }
  if (fileExists && IsReadOnly(*path)) {
    SendMessage("File : " + *path + " is marked as Read Only!");
    return false;
  }
  bool written = false;
  AttemptOrReport(kCannotWrite, *path, "", [&] { written = WriteEntry({*path, *section, *name}, *value); });
  // Into a file that was there, a write that fails does not fail the action: only its messages tell.
  return written || fileExists;
}

bool TCustomWriteIniFileAction::IsReadOnly(const std::string& path) const {
  uint32_t attributes = 0;
  return GetPlatform().entries->GetAttributes(path, attributes) &&
         (attributes & FileAttribute::ReadOnly) != 0;
}

/// False, and nothing written or sent, for an integer that is none.
bool TCustomWriteIniFileAction::WriteEntry(const Entry& entry, const std::string& value) const {
  const TIniFile ini(GetPlatform(), entry.path);
  const auto message = CreateStatusMessage();
  const std::string writing = "Writing to IniFile: " + entry.path + "Section : " + entry.section +
                              " ValueName: " + entry.name + " Value: ";
  switch (ValueType) {
    case TIniValueType::vtString:
      message->AddLine(writing + value);
      ini.WriteString(entry.section, entry.name, value);
      break;
    case TIniValueType::vtBool: {
      const auto truth = StringToBoolean(value);
      if (!truth) throw EVekError("'" + value + "' is not a valid boolean value");
      message->AddLine(writing + std::string(BooleanText(*truth)));
      ini.WriteBool(entry.section, entry.name, *truth);
      break;
    }
    case TIniValueType::vtInteger: {
      const int32_t number = StringToInteger(value).value_or(kNoNewInteger);
      if (number == kNoNewInteger) {
        message->SetText("New Value is not an integer : " + value);
        return false;
      }
      message->AddLine(writing + std::to_string(number));
      ini.WriteInteger(entry.section, entry.name, number);
      break;
    }
  }
  SendStatusMessage(message);
  return true;
}
