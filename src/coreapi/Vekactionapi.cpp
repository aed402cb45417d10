#include "coreapi/Vekactionapi.h"

#include <algorithm>
#include <exception>

#include "coreapi/Vekactionhost.h"
#include "platform/ErrorTexts.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kHostAliases[] = {
    "[Action]",
    "Name=Name",
    "Enabled=Enabled",
    "Description=Description",
    "IgnoreFailure=Ignore Failure",
    "Condition=Condition",
    "RetryCount=Retry Count",
    "RetryDelaySeconds=Retry Delay (Seconds)",
    "TimeoutSeconds=Time-out (Seconds)",
    "Always=Always",
};

constexpr std::string_view kHostHelp[] = {
    "Name=Optional name, by which scripts find the action",
    "Enabled=A disabled action and its children do not run",
    "Description=Text shown instead of the action's own description",
    "IgnoreFailure=A failure is logged and the build goes on",
    "Condition=Script expression; when it is false the action and its children are skipped",
    "RetryCount=Further attempts after a failure",
    "RetryDelaySeconds=Seconds between two attempts",
    "TimeoutSeconds=Seconds after which an attempt is asked to terminate; 0 for no limit",
    "Always=Runs even when a step before it in its group has failed: the place for cleaning up",
};

class LogMessage final : public IVekActionLogMessage {
 public:
  StringList& Lines() override { return lines_; }
  const StringList& Lines() const override { return lines_; }
  void AddLine(std::string_view text) override { lines_.emplace_back(text); }
  void SetText(std::string_view text) override { lines_.assign(1, std::string(text)); }

 private:
  StringList lines_;
};

/// Appends one list of the class's answers, the base's lines first.
void AppendLines(const ActionClass* level, std::span<const std::string_view> ActionClass::*list,
                 StringList& lines) {
  if (!level) return;
  AppendLines(level->inherited, list, lines);
  lines.insert(lines.end(), (level->*list).begin(), (level->*list).end());
}

}  // namespace

const ActionClass TCustomVekAction::kClass{.className = "TCustomVekAction",
                                           .aliases = kHostAliases,
                                           .help = kHostHelp,
                                           .properties = kVekActionProperties};

const ActionClass TVekAction::kClass{.inherited = &TCustomVekAction::kClass, .className = "TVekAction"};

TCustomVekAction::TCustomVekAction(IVekActionHost& host) : host_(host) {}
TCustomVekAction::~TCustomVekAction() = default;
TVekAction::~TVekAction() = default;

std::string TCustomVekAction::GetActionName() const { return std::string(ClassType().ActionName()); }
int32_t TCustomVekAction::GetHelpTopicID() const { return ClassType().HelpTopicID(); }
int32_t TCustomVekAction::GetFlags() const { return ClassType().Flags(); }
std::string TCustomVekAction::GetQuickHelpFilename() const {
  return std::string(ClassType().QuickHelpFilename());
}

std::string TCustomVekAction::GetCopyRight() const { return std::string(ClassType().CopyRight()); }

void TCustomVekAction::GetPropertyHelp(StringList& lines) const {
  AppendLines(&ClassType(), &ActionClass::help, lines);
}
void TCustomVekAction::GetPropertyAlias(StringList& lines) const {
  AppendLines(&ClassType(), &ActionClass::aliases, lines);
}
void TCustomVekAction::GetHiddenProperties(StringList& names) const {
  AppendLines(&ClassType(), &ActionClass::hiddenProperties, names);
}
void TCustomVekAction::GetReadOnlyProperties(StringList& names) const {
  AppendLines(&ClassType(), &ActionClass::readOnlyProperties, names);
}
std::vector<const PropertyRow*> TCustomVekAction::PropertyRows() const { return ClassType().AllProperties(); }

std::string TCustomVekAction::GetDescription() const {
  if (!Description.empty()) return Description;
  const std::string format = GetDescriptionFormatString();
  std::string text;
  int32_t index = 0;
  size_t position = 0;
  for (size_t mark; (mark = format.find("%s", position)) != std::string::npos; position = mark + 2) {
    text.append(format, position, mark - position).append(GetDescriptionKeyValue(index++));
  }
  return text.append(format, position);
}

std::string TCustomVekAction::GetDescriptionFormatString() const {
  return GetDescriptionKeyValue(0).empty() ? GetActionName() : GetActionName() + " [ %s ]";
}

std::string TCustomVekAction::GetDescriptionKeyValue(int32_t /*index*/) const { return {}; }
void TCustomVekAction::SetDescriptionKeyValue(int32_t /*index*/, std::string_view /*value*/) {}

bool TCustomVekAction::Validate(IVekActionValidationError& /*errors*/) { return true; }
void TCustomVekAction::ResetBuildStatus() { status_ = TVekActionStatus::asNone; }
bool TCustomVekAction::CanTerminate() const { return false; }
void TCustomVekAction::TerminateAction() {}
bool TCustomVekAction::CanRunUnderAsync() const { return true; }
bool TCustomVekAction::RequiresSync() const { return false; }
void TCustomVekAction::GetNextActionSource(bool /*failed*/, TVekNextAction& /*next*/) {}

bool TCustomVekAction::Run() {
  lastUnreadable_.clear();
  const std::string breach = ClassType().Raises() ? "" : "Contract breach: an exception left Execute: ";
  try {
    return Execute();
  } catch (const std::exception& error) {
    host_.ReportError(breach + error.what());
  } catch (...) {
    host_.ReportError(breach + "unknown exception");
  }
  return false;
}

IVekActionScript& TCustomVekAction::AddScript(std::string_view eventName) {
  scripts_.push_back({CreateActionScript(eventName)});
  return *scripts_.back().script;
}

void TCustomVekAction::InitialiseScriptParams(IVekActionScript& /*script*/) {}

IVekActionScript* TCustomVekAction::GetScriptByName(std::string_view eventName) {
  for (ScriptEvent& event : scripts_) {
    if (!SameText(event.script->Name(), eventName)) continue;
    // Not in AddScript: that runs in a constructor, where a derived class's declaration is out of reach.
    if (!event.declared) {
      event.declared = true;
      InitialiseScriptParams(*event.script);
    }
    return event.script.get();
  }
  return nullptr;
}

StringList TCustomVekAction::ScriptEvents() const {
  StringList names;
  for (const ScriptEvent& event : scripts_) names.push_back(event.script->Name());
  return names;
}

bool TCustomVekAction::ExecuteScript(std::string_view eventName, Variant& result) {
  IVekActionScript* script = GetScriptByName(eventName);
  return script && !script->IsBlank() && host_.ExecuteScript(*this, *script, result);
}

bool TCustomVekAction::RunScript(std::string_view eventName, std::initializer_list<ScriptValue> values) {
  IVekActionScript* script = GetScriptByName(eventName);
  if (!script) return false;
  const auto action = CreateActionScriptObject(*this);
  IVekActionScriptParams& params = script->Params();
  params.ParameterByName("Action").SetValue(action.get());
  for (const auto& [name, value] : values) params.ParameterByName(name).SetValue(value);
  Variant ignored;
  const bool ran = ExecuteScript(eventName, ignored);
  for (size_t i = 0; i < params.Count(); ++i) {
    if (std::holds_alternative<IVekScriptObject*>(params.Parameter(i).Value())) {
      params.Parameter(i).SetValue({});
    }
  }
  return ran;
}

bool TCustomVekAction::HasScript(std::string_view eventName) {
  const IVekActionScript* script = GetScriptByName(eventName);
  return script && !script->IsBlank();
}

const Variant& TCustomVekAction::ScriptResult(std::string_view eventName, std::string_view parameter) {
  return GetScriptByName(eventName)->Params().ParameterByName(parameter).Value();
}

/// Whether the text is that of a property which names a file or folder; only one that begins with a reference
/// needs to be told apart.
bool TCustomVekAction::IsPathProperty(std::string_view text) const {
  const std::string_view start = Trim(text);
  if (!start.starts_with('%') && !start.starts_with("$(")) return false;
  return std::ranges::any_of(PropertyRows(), [&](const PropertyRow* row) {
    if (!NamesPath(row->role)) return false;
    const PropertyValue value = row->get(*this);
    if (const auto* lines = std::get_if<StringList>(&value))
      return std::ranges::find(*lines, text) != lines->end();
    const auto* whole = std::get_if<std::string>(&value);
    return whole && *whole == text;
  });
}

std::string TCustomVekAction::ExpandProperty(std::string_view text) const {
  return IsPathProperty(text) ? host_.ExpandPath(text) : host_.ExpandExpression(text);
}

std::string TCustomVekAction::ExpandExpression(std::string_view text, bool /*required*/) const {
  return ExpandProperty(text);
}

WideString TCustomVekAction::ExpandExpression(const WideString& text) const {
  return WideString(ExpandProperty(text));
}

std::string TCustomVekAction::ExpandExpression(std::string_view text, int32_t& replaced,
                                               bool /*required*/) const {
  return host_.ExpandCounting(text, replaced);
}

bool TCustomVekAction::TryExpandExpression(std::string_view propertyTitle, std::string_view text,
                                           std::string& expanded, bool required) const {
  try {
    expanded = ExpandProperty(text);
  } catch (const std::exception& error) {
    host_.ReportError(std::string(propertyTitle) + ": " + error.what());
    return false;
  }
  if (required && Trim(expanded).empty()) {
    host_.ReportError(std::string(propertyTitle) + ": the text is blank");
    return false;
  }
  return true;
}

std::shared_ptr<IVekActionLogMessage> TCustomVekAction::CreateStatusMessage() const {
  return std::make_shared<LogMessage>();
}
void TCustomVekAction::SendStatusMessage(const std::shared_ptr<IVekActionLogMessage>& message) const {
  host_.SendStatusMessage(*message);
}
void TCustomVekAction::SendStatusMessage(std::initializer_list<std::string_view> lines) const {
  const auto message = CreateStatusMessage();
  for (std::string_view line : lines) message->AddLine(line);
  SendStatusMessage(message);
}
void TCustomVekAction::SendMessage(std::string_view text) const { host_.SendMessage(text); }
void TCustomVekAction::HoldLog(bool held) const { host_.HoldLog(held); }

void TCustomVekAction::SendProgress(std::string_view text, int32_t percent) const {
  host_.SendProgress(text, percent);
}

Variant TCustomVekAction::GetVariableValue(std::string_view name) const {
  return host_.GetVariableValue(name);
}
void TCustomVekAction::SetVariable(std::string_view name, Variant value) const {
  host_.SetVariable(name, std::move(value));
}
bool TCustomVekAction::IsVariableDefined(std::string_view name) const {
  return host_.IsVariableDefined(name);
}
void TCustomVekAction::AddNewVariable(std::string_view name, std::string_view value) const {
  host_.SetVariable(name, std::string(value));
}

void TCustomVekAction::MarkVariableSecret(std::string_view name) const { host_.MarkVariableSecret(name); }

void TCustomVekAction::UpdateKeyValue(int32_t index, std::string_view /*current*/, std::string_view value) {
  SetDescriptionKeyValue(index, value);
  host_.SetProjectModified();
}

bool TCustomVekAction::StopSignalled() { return host_.StopSignalled(); }
void TCustomVekAction::Synchronize(const std::function<void()>& method) const { host_.Synchronize(method); }
bool TCustomVekAction::GetIsUnattended() const { return host_.IsUnattended(); }
IVekProjectObjectAPI& TCustomVekAction::GetProjectObjectAPI() const { return host_.GetProjectObjectAPI(); }
void TCustomVekAction::SetProjectModified() const { host_.SetProjectModified(); }
const Platform& TCustomVekAction::GetPlatform() const { return host_.GetPlatform(); }
std::string TCustomVekAction::SysErrorMessage(Win32Error code) const {
  return GetPlatform().errorTexts->Text(code);
}
