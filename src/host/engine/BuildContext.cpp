#include "host/engine/BuildContext.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekfolderwalk.h"
#include "host/catalogue/Catalogue.h"
#include "host/log/EventSink.h"
#include "host/project/Project.h"
#include "host/project/Quoted.h"
#include "platform/Clock.h"
#include "platform/CopyToolVariables.h"
#include "platform/Environment.h"
#include "platform/ErrorTexts.h"
#include "platform/ProtectedFolders.h"

namespace {

/// The property of the action, as its file has it, that holds the text.
const ItemLine* FindItem(const ActionNode& node, std::string_view text) {
  for (const ItemLine& item : node.lines) {
    const PropertyRow* row = node.action->FindProperty(item.name);
    if (!row || !row->IsText()) continue;
    const PropertyValue value = row->get(*node.action);
    const auto* lines = std::get_if<StringList>(&value);
    const bool holdsIt =
        lines ? std::ranges::find(*lines, text) != lines->end() : std::get<std::string>(value) == text;
    if (holdsIt) return &item;
  }
  return nullptr;
}

}  // namespace

BuildContext::BuildContext(const Platform& platform, const Catalogue& catalogue, EventSink& events,
                           bool unattended)
    : machine_(platform),
      processes_(*platform.processes, *this),
      shell_(*platform.shell, *this),
      platform_(platform),
      catalogue_(catalogue),
      unattended_(unattended),
      events_(events, variables_.GetSecrets()),
      ownStop_(std::make_unique<StopControl>(*platform.clock)),
      stop_(*ownStop_),
      fileSets_(*this) {
  ReportPrograms();
  stop_.OnTimeout([this](std::string_view path, uint32_t seconds) {
    Postpone({"Timed out after " + std::to_string(seconds) + " seconds", std::string(path)});
  });
}

BuildContext::BuildContext(BuildContext& outer)
    : outer_(&outer),
      machine_(outer.machine_),
      processes_(*machine_.processes, *this),
      shell_(*machine_.shell, *this),
      platform_(machine_),
      catalogue_(outer.catalogue_),
      unattended_(outer.unattended_),
      allowsProtected_(outer.allowsProtected_),
      path_(outer.path_),
      basePath_(outer.path_),
      variables_(&outer.variables_.GetSecrets()),
      events_(outer.events_, variables_.GetSecrets()),
      stop_(outer.stop_),
      fileSets_(*this) {
  ReportPrograms();
}

/// Programs are started through what reports them.
void BuildContext::ReportPrograms() {
  platform_.processes = &processes_;
  platform_.shell = &shell_;
}

BuildContext::~BuildContext() {
  for (const auto& [name, before] : replacedExports_) platform_.environment->Export(name, before);
}

const std::string& BuildContext::RunningFile() const {
  static const std::string kNone;
  return project_ ? project_->fileName : kNone;
}

void BuildContext::SetProject(Project* project) {
  project_ = project;
  fileSets_.Declare(project ? project->fileSets : std::vector<FileSetDeclaration>());
  std::string running;
  for (const BuildContext* build = this; build; build = build->Outer()) {
    if (!build->RunningFile().empty()) running += build->RunningFile() + '\n';
  }
  platform_.environment->Export(kProjectsVariable, running);
}

EventSink& BuildContext::Events() {
  if (outer_) outer_->Events();
  // Lines of a program that came together have one time.
  if (!speaking_ || !burstHasTime_) events_.At(platform_.clock->UtcNow());
  burstHasTime_ = isHeld_;
  if (hasPostponed_.load(std::memory_order_relaxed)) {
    std::vector<Postponed> told;
    {
      const std::lock_guard lock(postponedMutex_);
      told.swap(postponed_);
      hasPostponed_ = false;
    }
    for (const auto& [text, errorPath] : told) {
      if (errorPath.empty()) {
        events_.Message(path_, text);
      } else {
        CountError();
        events_.Error(errorPath, text);
      }
    }
  }
  return events_;
}

bool BuildContext::EvaluateCondition(std::string_view expression) {
  try {
    return Trim(expression).empty() || IsTrue(EvaluateScript(expression));
  } catch (const EVekExpressionError& error) {
    const std::string place = PlaceOf(expression);
    throw EVekExpressionError(place.empty() ? error.what() : error.what() + (" (" + place + ')'));
  }
}

void BuildContext::CompileExpression(std::string_view source) {
  Scripts().Compile(source, ScriptEngine::SourceKind::Expression);
}
bool BuildContext::IsScriptName(const std::string& name) {
  return VariantToText(Scripts().Evaluate("typeof " + name)) != "undefined";
}
void BuildContext::CompileScript(std::string_view source) {
  Scripts().Compile(source, ScriptEngine::SourceKind::Script);
}

const ActionNode* BuildContext::CurrentNode() const {
  const ActionNode* node = nullptr;
  const std::vector<ActionNode>* actions = project_ ? &project_->actions : nullptr;
  for (const std::string& step : SplitAt(std::string_view(path_).substr(basePath_.size()), "/")) {
    if (step.empty()) continue;
    const size_t number = static_cast<size_t>(std::atoll(step.c_str()));
    if (!actions || number == 0 || number > actions->size()) return nullptr;
    node = &(*actions)[number - 1];
    actions = &node->children;
  }
  return node;
}

/// "; did you mean ...?" or nothing.
std::string BuildContext::NearVariable(std::string_view name) const {
  std::vector<std::string_view> names;
  for (const auto& [known, value] : variables_.All()) names.push_back(known);
  return Suggestion(name, names);
}

/// Where the text that is being expanded stands: "/p.vekproj:5, property Command". Empty where no file has
/// it.
std::string BuildContext::PlaceOf(std::string_view text) const {
  if (RunningFile().empty()) return {};
  const auto place = [this](int line, const std::string& item) {
    return RunningFile() + ':' + std::to_string(line) + ", " + item;
  };
  if (const auto* set = fileSets_.BeingRead()) return place(set->line, "file set " + Quoted(set->name));
  const ActionNode* node = CurrentNode();
  const ItemLine* item = node ? FindItem(*node, text) : nullptr;
  return item ? place(item->line, "property " + item->name) : std::string();
}

/// The error with what helps to mend it: a near name, where the text stands, how it is written literally.
std::string BuildContext::Explained(const EReferenceError& error, std::string_view text) const {
  std::string message = error.what();
  if (!error.Variable().empty()) message += NearVariable(error.Variable());
  StringList notes;
  if (std::string place = PlaceOf(text); !place.empty()) notes.push_back(std::move(place));
  if (!error.Escape().empty()) notes.emplace_back(error.Escape());
  return notes.empty() ? message : message + " (" + JoinLines(notes, "; ") + ')';
}

template <class Expand>
std::string BuildContext::Expanded(std::string_view text, Expand expand) {
  try {
    return expand();
  } catch (const EReferenceError& error) {
    throw EVekExpressionError(Explained(error, text));
  }
}

std::string BuildContext::ExpandExpression(std::string_view text) {
  return Expanded(text, [&] { return ExpandText(text, *this); });
}

std::string BuildContext::ExpandPath(std::string_view text) {
  return Expanded(text, [&] { return ::ExpandPath(text, *this); });
}

std::string BuildContext::ExpandCounting(std::string_view text, int32_t& replaced) {
  return Expanded(text, [&] { return ExpandText(text, *this, &replaced); });
}

std::optional<std::string> BuildContext::VariableText(std::string_view name) {
  if (const Variant* value = variables_.Find(name)) return VariantToText(*value);
  return platform_.environment->Variable(name);
}

Variant BuildContext::EvaluateScript(std::string_view source) {
  try {
    return Scripts().Evaluate(source);
  } catch (const EScriptError& error) {
    const std::string& unknown = error.UnknownName();
    throw EVekExpressionError(unknown.empty() ? error.what() : error.what() + NearVariable(unknown));
  }
}

Variant BuildContext::GetVariableValue(std::string_view name) {
  if (const Variant* value = variables_.Find(name)) return *value;
  throw EVekError("variable \"" + std::string(name) + "\" is not defined");
}

void BuildContext::SetVariable(std::string_view name, Variant value) {
  Events().Variable(path_, name, value);
  variables_.Set(name, std::move(value));
}

bool BuildContext::IsVariableDefined(std::string_view name) { return variables_.Find(name) != nullptr; }

/// A name that no variable has may stand for one of the environment.
void BuildContext::MarkVariableSecret(std::string_view name) {
  variables_.MarkSecret(name);
  if (const auto text = VariableText(name)) variables_.GetSecrets().AddValue(*text);
}

void BuildContext::ExportVariable(const std::string& name) {
  replacedExports_.emplace(name, platform_.environment->Variable(name));
  variables_.Export(name, [this, name](const std::string& text) {
    const SysResult exported = platform_.environment->Export(name, text);
    if (exported) return;
    throw EVekError("cannot export variable \"" + name + "\": " + platform_.errorTexts->Text(exported.code));
  });
}

void BuildContext::SendMessage(std::string_view text) {
  if (std::this_thread::get_id() == buildThread_) {
    lastWords_ = text;
    EventSink& events = Events();
    return speaking_ ? events.ProgramLine(path_, *speaking_, text) : events.Message(path_, text);
  }
  Postpone({std::string(text)});
}

void BuildContext::Postpone(Postponed told) {
  const std::lock_guard lock(postponedMutex_);
  postponed_.push_back(std::move(told));
  hasPostponed_ = true;
}

void BuildContext::SendStatusMessage(const IVekActionLogMessage& message) {
  lastWords_ = JoinLines(message.Lines(), "\n");
  Events().Status(path_, message.Lines());
}
void BuildContext::SendProgress(std::string_view text, int32_t percent) {
  Events().Progress(path_, text, percent);
}
void BuildContext::ReportError(std::string_view text) {
  CountError();
  Events().Error(path_, text);
}

void BuildContext::HoldLog(bool held) {
  isHeld_ = held;
  burstHasTime_ = false;
  events_.Hold(held);
}

bool BuildContext::ExecuteScript(TCustomVekAction& /*action*/, IVekActionScript& script, Variant& result) {
  try {
    result = Scripts().Run(script.Text(), script.Params());
    return true;
  } catch (const EScriptError& error) {
    const std::string line = error.Line() > 0 ? ", line " + std::to_string(error.Line()) : "";
    ReportError("script " + script.Name() + line + ": " + error.what());
    return false;
  }
}

void BuildContext::Synchronize(const std::function<void()>& method) {
  if (outer_) return outer_->Synchronize(method);
  // The build thread is this host's user-interface thread.
  struct Scope {
    bool& flag;
    const bool before = std::exchange(flag, true);
    ~Scope() { flag = before; }
  } scope{inSynchronize_};
  method();
}

void BuildContext::OnProgram(std::string_view commandLine, const std::string& startDirectory) {
  Environment& environment = *platform_.environment;
  Events().Process(
      path_, commandLine,
      startDirectory.empty() ? environment.CurrentFolder() : environment.FullPath(startDirectory));
}

std::string BuildContext::NativePath(std::string_view path) {
  return platform_.environment->NativePath(path);
}

FolderLinks BuildContext::GetFolderLinks() {
  return project_ && project_->followLinks ? FolderLinks::Follow : FolderLinks::Leave;
}

bool BuildContext::MayRemoveTree(std::string_view folder) {
  if (allowsProtected_) return true;
  return !IsProtectedTree(platform_, folder, RunningFile()) && (!outer_ || outer_->MayRemoveTree(folder));
}
bool BuildContext::MayRemoveMatches(std::string_view spec) {
  return allowsProtected_ || !IsProtectedSelection(platform_, spec);
}

IVekScriptObject* BuildContext::ActionByName(std::string_view name) {
  TCustomVekAction* action = project_ ? FindActionByName(project_->actions, name) : nullptr;
  if (!action) return nullptr;
  auto& object = scriptObjects_[action];
  if (!object) object = CreateActionScriptObject(*action);
  return object.get();
}

const std::vector<std::pair<std::string, Variant>>& BuildContext::Constants() {
  return catalogue_.ScriptConstants();
}

ScriptEngine& BuildContext::Scripts() {
  if (!scripts_) scripts_ = CreateScriptEngine(*this);
  return *scripts_;
}
