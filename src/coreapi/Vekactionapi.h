#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "base/WideString.h"
#include "base/Win32Error.h"
#include "coreapi/Vekactionclass.h"
#include "coreapi/Vekerrors.h"
#include "coreapi/Veklumxml.h"
#include "coreapi/Vekscripts.h"
#include "coreapi/Vekvariant.h"
#include "vekcoreapi_export.h"

struct Platform;
class FindSearch;
class IVekActionHost;
class IVekProjectObjectAPI;
enum class FolderLinks;
class StopEvent;

/// A status message: a block of lines that reaches the build log in one piece.
class IVekActionLogMessage {
 public:
  virtual ~IVekActionLogMessage() = default;
  virtual StringList& Lines() = 0;
  virtual const StringList& Lines() const = 0;
  virtual void AddLine(std::string_view text) = 0;

  /// Makes this the message's only line.
  virtual void SetText(std::string_view text) = 0;
};

/// Collects what Validate finds: the property's display title and a message.
class IVekActionValidationError {
 public:
  virtual ~IVekActionValidationError() = default;
  virtual void AddError(std::string_view propertyTitle, std::string_view message) = 0;
};

/// Where an action stands in the current build. An action may set its own with SetActionStatus.
enum class TVekActionStatus {
  asNone,
  asDisabled,
  asWaiting,
  asRunning,
  asSucceeded,
  asFailed,
  asFailedIgnored,
  asStopped,
  asSkipped,
  asConditionNotMet,
};

/// Which action the engine turns to after one that succeeded.
enum class TVekNextAction {
  naDefault,       // its children, then its next sibling
  naChildren,      // its children, then the action itself again: one more pass of a loop
  naNextSibling,   // the loop is over
  naSkipChildren,  // as if it had no children
  naSkipGuarded,   // likewise, because the condition that guards them does not hold
};

/// Common base of every action: the operations that actions override, and the host's services.
/// Unless marked otherwise everything is called on the build thread.
class VEK_API TCustomVekAction : public TLumXMLObject {
 public:
  static const ActionClass kClass;

  explicit TCustomVekAction(IVekActionHost& host);
  ~TCustomVekAction() override;
  TCustomVekAction(const TCustomVekAction&) = delete;
  TCustomVekAction& operator=(const TCustomVekAction&) = delete;

  // Properties that every action has from its base.
  std::string Name;         // optional; what scripts look an action up by
  bool Enabled = true;      // a disabled action and its children do not run
  std::string Description;  // replaces the rendered description where set
  bool IgnoreFailure = false;
  std::string Condition;  // a script expression; false skips the action and its children
  uint32_t RetryCount = 0;
  uint32_t RetryDelaySeconds = 0;
  uint32_t TimeoutSeconds = 0;  // 0: none
  bool Always = false;          // runs after a failure too

  // What the action is.
  virtual const ActionClass& ClassType() const = 0;
  std::string GetActionName() const;
  virtual int32_t GetHelpTopicID() const;
  virtual int32_t GetFlags() const;  // bits whose meaning is the host's
  virtual std::string GetQuickHelpFilename() const;
  std::string GetCopyRight() const;
  virtual void GetPropertyHelp(StringList& lines) const;
  virtual void GetPropertyAlias(StringList& lines) const;
  virtual void GetHiddenProperties(StringList& names) const;
  virtual void GetReadOnlyProperties(StringList& names) const;
  std::vector<const PropertyRow*> PropertyRows() const override;

  /// The one-line description: Description where set, else the format string with the key values in place
  /// of its %s, in the order of their indexes.
  std::string GetDescription() const;
  virtual std::string GetDescriptionFormatString() const;
  virtual std::string GetDescriptionKeyValue(int32_t index) const;

  /// Stores the key value, with no other effect.
  virtual void SetDescriptionKeyValue(int32_t index, std::string_view value);

  // Running.
  /// True when the settings are complete. Tests the stored text; expands nothing; never raises.
  virtual bool Validate(IVekActionValidationError& errors);
  virtual void ResetBuildStatus();
  virtual bool CanTerminate() const;
  virtual void TerminateAction();  // [any thread]
  virtual bool CanRunUnderAsync() const;
  virtual bool RequiresSync() const;

  /// `failed` tells how Execute ended. The engine starts from naDefault.
  virtual void GetNextActionSource(bool failed, TVekNextAction& next);

  /// Runs Execute. No exception leaves it: one that Execute lets pass fails the action and is reported, as a
  /// breach of contract unless the class may raise.
  bool Run();

  TVekActionStatus ActionStatus() const { return status_; }
  void SetActionStatus(TVekActionStatus status) { status_ = status; }

  // Script events.
  /// The script of that event, its parameters declared, or null when the action has no such event.
  IVekActionScript* GetScriptByName(std::string_view eventName);
  StringList ScriptEvents() const;

 protected:
  /// The action's work; true for success. Failure is reported in the log, not raised.
  virtual bool Execute() = 0;

  /// Declares the parameters of one of the action's script events.
  virtual void InitialiseScriptParams(IVekActionScript& script);

  /// Offers a script event; called by constructors.
  IVekActionScript& AddScript(std::string_view eventName);

  /// A value that a script receives under a name; objects end with the run.
  using ScriptValue = std::pair<std::string_view, Variant>;

  /// Runs the event's script with the parameter "Action" and these.
  bool RunScript(std::string_view eventName, std::initializer_list<ScriptValue> values);

  /// Whether there is something to run for the event.
  bool HasScript(std::string_view eventName);

  /// What the event's script left in a parameter.
  const Variant& ScriptResult(std::string_view eventName, std::string_view parameter);

  /// True when the event's script ran; its parameters then hold what it left. A blank script does not run.
  bool ExecuteScript(std::string_view eventName, Variant& result);

  // Expansion.
  /// Every expression and variable reference replaced by its value; raises EVekExpressionError, whose
  /// message says what was wrong. The byte-string form's flag says that the text is required; it is for
  /// TryExpandExpression to enforce.
  std::string ExpandExpression(std::string_view text, bool required) const;
  WideString ExpandExpression(const WideString& text) const;

  /// Also reports how many references were replaced.
  std::string ExpandExpression(std::string_view text, int32_t& replaced, bool required) const;

  /// Expands into `expanded`. False when that fails, or when the text is required and expands to blanks; the
  /// failure has then been reported under the property's title and Execute returns false in silence.
  bool TryExpandExpression(std::string_view propertyTitle, std::string_view text, std::string& expanded,
                           bool required) const;

  // The build log.
  std::shared_ptr<IVekActionLogMessage> CreateStatusMessage() const;
  void SendStatusMessage(const std::shared_ptr<IVekActionLogMessage>& message) const;
  void SendStatusMessage(std::initializer_list<std::string_view> lines) const;
  void SendMessage(std::string_view text) const;  // [any thread]
  void SendProgress(std::string_view text, int32_t percent) const;

  /// While the log is held back its lines may be kept together, for a moment in which much happens at once.
  void HoldLog(bool held) const;

  // Variables.
  Variant GetVariableValue(std::string_view name) const;
  void SetVariable(std::string_view name, Variant value) const;
  bool IsVariableDefined(std::string_view name) const;
  void AddNewVariable(std::string_view name, std::string_view value) const;

  /// From now on no value of the variable shows in a log.
  void MarkVariableSecret(std::string_view name) const;

  // The host.
  /// What the setter of a key value calls instead of storing: the host stores the new value through
  /// SetDescriptionKeyValue and so keeps the description current.
  void UpdateKeyValue(int32_t index, std::string_view current, std::string_view value);
  virtual bool StopSignalled();
  void Synchronize(const std::function<void()>& method) const;
  bool GetIsUnattended() const;
  IVekProjectObjectAPI& GetProjectObjectAPI() const;
  void SetProjectModified() const;
  IVekActionHost& GetActionContext() const { return host_; }
  const Platform& GetPlatform() const;

  /// The system's message for an error code.
  std::string SysErrorMessage(Win32Error code) const;

  // Steps that many actions have in common.
  /// Tells the host that what is logged is an error: for those that do not make the action fail, too. What
  /// goes through AttemptOrReport, TryExpandExpression or ReportError is counted already.
  void CountError() const;

  /// Does one step of Execute. What it raises is reported in a status message: `complaint` with `subject` as
  /// far as the step brought it, then `mark` with the reason; answers false then.
  bool AttemptOrReport(std::string_view complaint, const std::string& subject, std::string_view mark,
                       const std::function<void()>& step) const;

  /// Clears what TerminateAction sets, as a run begins; a wish to stop that came before it is kept.
  void RearmStop(std::atomic<bool>& flag);
  void RearmStop(StopEvent& event);

  /// Calls `visit` with a folder, which ends in a delimiter or is empty for the current one, and when asked
  /// with every folder below it that is neither hidden nor system, parents first; ends when the build is to
  /// stop.
  using FolderVisit = std::function<void(const std::string& folder)>;
  void WalkFolders(const std::string& folder, bool recurse, const FolderVisit& visit);

  /// What a walk whose finds are handed out or changed does with links to folders.
  FolderLinks GetFolderLinks() const;

  /// Reports an error for which the action has no words of its own.
  void ReportError(std::string_view text) const;

  /// What a step asks before it removes or moves away a folder with all that it holds, or the entries that
  /// match a spec. When the host protects the folder this says so, and the step fails with nothing touched.
  bool MayRemoveTree(std::string_view folder) const;
  bool MayRemoveMatches(std::string_view spec) const;

  /// Reports a folder that a search could not look into, or not to its end; not twice in a row. The second
  /// form is for a search whose matches were taken.
  void ReportUnreadable(std::string_view folder, Win32Error code) const;
  void ReportUnreadable(std::string_view folder, const FindSearch& search) const;

 private:
  friend class VekRuntimeBrowser;

  bool IsPathProperty(std::string_view text) const;
  std::string ExpandProperty(std::string_view text) const;

  void SendRefusal(std::string_view folder) const;

  struct ScriptEvent {
    std::unique_ptr<IVekActionScript> script;
    bool declared = false;  // its parameters
  };

  IVekActionHost& host_;
  TVekActionStatus status_ = TVekActionStatus::asNone;
  std::vector<ScriptEvent> scripts_;
  mutable std::string lastUnreadable_;  // of this run
};

/// The rows of those properties.
inline constexpr PropertyRow kVekActionProperties[] = {
    Published<&TCustomVekAction::Name>("Name"),
    Published<&TCustomVekAction::Enabled>("Enabled"),
    Published<&TCustomVekAction::Description>("Description"),
    Published<&TCustomVekAction::IgnoreFailure>("IgnoreFailure"),
    Published<&TCustomVekAction::Condition>("Condition", TextRole::Script),
    Published<&TCustomVekAction::RetryCount>("RetryCount"),
    Published<&TCustomVekAction::RetryDelaySeconds>("RetryDelaySeconds"),
    Published<&TCustomVekAction::TimeoutSeconds>("TimeoutSeconds"),
    Published<&TCustomVekAction::Always>("Always"),
};

/// What a base on the host's side adds to these, for pages to look up: each such base has its overload.
consteval std::span<const PropertyRow> BaseRows(const TCustomVekAction*) { return {}; }

/// The class type in which the host hands an action to a property page.
class VEK_API TVekAction : public TCustomVekAction {
 public:
  static const ActionClass kClass;
  using TCustomVekAction::TCustomVekAction;
  ~TVekAction() override;
};

/// Makes the published class of a logic class: `T` declares `kClassName` and `kPublished`.
template <class T, class Logic>
class PublishedAction : public Logic {
 public:
  using Logic::Logic;
  using PublishedBase = Logic;  // where a page looks further for a property

  static const ActionClass& Class() {
    static const ActionClass kClass{.inherited = &Logic::kClass,
                                    .className = T::kClassName,
                                    .properties = T::kPublished,
                                    .create = [](IVekActionHost& host) -> std::unique_ptr<TCustomVekAction> {
                                      return std::make_unique<T>(host);
                                    }};
    return kClass;
  }
  const ActionClass& ClassType() const override { return Class(); }
};
