#include "textini/Vekregaction.h"

#include "textini/Vekconversions.h"
#include "textini/Vekregistryobject.h"

namespace {

constexpr std::string_view kAliases[] = {
    "[Registry]",
    "RegRoot=Root",
    "RegKey=Key Name",
    "RegValueName=Value Name",
    "RegValType=Value Type",
    "AllowCreateKey=AllowCreate",
};
constexpr std::string_view kHelp[] = {
    "RegRoot=The root value in the registry",
    "RegKey=Registry Key containing the value",
    "RegValue=Registry Value to read",
    "RegValType=The Value Type, ie integer or string",
    "AllowCreateKey=Allow the Registry Key to be Created if it does not already Exist",
};

constexpr std::string_view kReadAliases[] = {"VekVariable=Variable"};
constexpr std::string_view kReadHelp[] = {"VekVariable=Variable to set"};

// Set has two lines of help for RegValue.
constexpr std::string_view kSetAliases[] = {"RegValue=Value"};
constexpr std::string_view kSetHelp[] = {"RegValue=The new value"};

template <class Number>
Number Required(const std::optional<Number>& number, const std::string& text, std::string_view what) {
  if (!number) throw EVekError("'" + text + "' is not a valid " + std::string(what) + " value");
  return *number;
}

}  // namespace

const ActionClass TCustomRegAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomRegAction",
    .aliases = kAliases,
    .help = kHelp,
    .raises = true,
};

const ActionClass TCustomReadRegValueAction::kClass{
    .inherited = &TCustomRegAction::kClass,
    .className = "TCustomReadRegValueAction",
    .actionName = "Read Registry Value",
    .helpTopicID = 1260,
    .quickHelpFilename = "Plugins\\ReadRegValue.html",
    .aliases = kReadAliases,
    .help = kReadHelp,
};

const ActionClass TCustomSetRegValueAction::kClass{
    .inherited = &TCustomRegAction::kClass,
    .className = "TCustomSetRegValueAction",
    .actionName = "Set Registry Value",
    .helpTopicID = 1260,
    .quickHelpFilename = "Plugins\\SetRegValue.html",
    .aliases = kSetAliases,
    .help = kSetHelp,
};

const ActionClass TCustomDeleteRegValueAction::kClass{
    .inherited = &TCustomRegAction::kClass,
    .className = "TCustomDeleteRegValueAction",
    .actionName = "Delete Registry Value",
    .helpTopicID = 1260,
    .quickHelpFilename = "Plugins\\DeleteRegValue.html",
};

bool TCustomRegAction::Validate(IVekActionValidationError& errors) {
  if (!RegKey.empty()) return true;
  errors.AddError("Registry Key", "Registry Key has not been set");
  return false;
}

bool TCustomDeleteRegValueAction::Validate(IVekActionValidationError& errors) {
  const bool complete = TCustomRegAction::Validate(errors);
  if (!RegValueName.empty()) return complete;
  errors.AddError("Registry Value", "Registry Value name has not been set");
  return false;
}

bool TCustomRegAction::Execute() {
  std::string key, valueName;
  try {
    key = ExpandExpression(RegKey, true);
    valueName = ExpandExpression(RegValueName, true);
  } catch (const std::exception& error) {
    SendStatusMessage({std::string("Error Expanding String property : ") + error.what()});
    return false;
  }
  TVekRegistry registry(GetPlatform(), RegRoot, GetRegAccess());
  const SysResult opened = registry.OpenKey(key, AllowCreateKey);
  if (opened) return InternalDoRegAction(registry, valueName);
  SendStatusMessage({"Key does not exist : " + RegKey});
  // The line is the same whatever kept the key from being opened.
  if (opened.code != Win32Error::FileNotFound) {
    ReportError("Cannot open the key " + key + ": " + SysErrorMessage(opened.code));
  }
  return false;
}

bool TCustomReadRegValueAction::InternalDoRegAction(TVekRegistry& registry, const std::string& valueName) {
  if (!IsVariableDefined(VekVariable)) {
    // The next run finds it defined.
    AddNewVariable(VekVariable, "");
    SendMessage("Variable : " + VekVariable + " is not defined");
    return false;
  }
  try {
    const Variant value = ReadValue(registry, valueName);
    SetVariable(VekVariable, value);
    SendMessage("Read Value : " + VariantToText(value));
    return true;
  } catch (const std::exception& error) {
    SendMessage(error.what());
    return false;
  }
}

Variant TCustomReadRegValueAction::ReadValue(const TVekRegistry& registry,
                                             const std::string& valueName) const {
  switch (RegValType) {
    case TRegValueType::rtString:
      return registry.ReadString(valueName);
    case TRegValueType::rtInteger:
      return int64_t{registry.ReadInteger(valueName)};
    case TRegValueType::rtDWord:
      return int64_t{registry.ReadDWord(valueName)};
    case TRegValueType::rtBoolean:
      return registry.ReadBool(valueName);
  }
  throw EVekError("Invalid value type");
}

bool TCustomSetRegValueAction::InternalDoRegAction(TVekRegistry& registry, const std::string& valueName) {
  std::string text;
  Variant value;
  try {
    text = ExpandExpression(RegValue, true);
    value = TypedValue(text);
  } catch (const std::exception& error) {
    SendMessage(std::string("Error expanding Value : ") + error.what());
    return false;
  }
  WriteValue(registry, valueName, value);
  SendMessage("Set Value " + valueName + " to : " + text);
  return true;
}

Variant TCustomSetRegValueAction::TypedValue(const std::string& text) const {
  switch (RegValType) {
    case TRegValueType::rtInteger:
      return int64_t{Required(StringToInteger(text), text, "integer")};
    case TRegValueType::rtDWord:
      return Required(StringToInteger64(text), text, "integer");
    case TRegValueType::rtBoolean:
      return Required(StringToBoolean(text), text, "boolean");
    case TRegValueType::rtString:
      break;
  }
  return text;
}

/// Of a number that is longer than the value the low bits count.
void TCustomSetRegValueAction::WriteValue(const TVekRegistry& registry, const std::string& valueName,
                                          const Variant& value) const {
  if (const int64_t* number = std::get_if<int64_t>(&value)) {
    registry.WriteDWord(valueName, static_cast<uint32_t>(*number));
  } else if (const bool* truth = std::get_if<bool>(&value)) {
    registry.WriteBool(valueName, *truth);
  } else {
    registry.WriteString(valueName, std::get<std::string>(value));
  }
}

bool TCustomDeleteRegValueAction::InternalDoRegAction(TVekRegistry& registry, const std::string& valueName) {
  if (!registry.ValueExists(valueName)) {
    SendStatusMessage({"Error Deleting Value " + valueName + " - Value does not exist"});
    return false;
  }
  const SysResult deleted = registry.DeleteValue(valueName);
  SendStatusMessage({deleted ? "Deleted Value " + valueName
                             : "Error Deleting Value " + valueName + " : " + SysErrorMessage(deleted.code)});
  return deleted.ok;
}
