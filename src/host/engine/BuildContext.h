#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "coreapi/Vekactionhost.h"
#include "host/engine/ReportedPrograms.h"
#include "host/engine/StopControl.h"
#include "host/expressions/Expressions.h"
#include "host/expressions/Variables.h"
#include "host/filesets/FileSets.h"
#include "host/scripts/ScriptEngine.h"
#include "host/secrets/SecretMask.h"
#include "platform/Platform.h"

class Catalogue;
class EventSink;
struct ActionNode;
struct Project;

/// The host that actions run in: variables, expressions, scripts, the log and the wish to stop.
class BuildContext final : public IVekActionHost,
                           private ExpressionSource,
                           private ScriptEnvironment,
                           private ProgramListener {
 public:
  BuildContext(const Platform& platform, const Catalogue& catalogue, EventSink& events, bool unattended);

  /// For a project that is built as a step of another one.
  explicit BuildContext(BuildContext& outer);
  ~BuildContext() override;

  Variables& GetVariables() { return variables_; }
  StopControl& Stop() { return stop_; }
  const Catalogue& GetCatalogue() const { return catalogue_; }
  const BuildContext* Outer() const { return outer_; }

  /// Where events go, after what other threads have sent meanwhile. [build thread]
  EventSink& Events();

  /// The project that is being built: its actions by name and its file sets; null for none.
  void SetProject(Project* project);
  const std::string& RunningFile() const;

  /// From now on the programs that steps start find the variable's value in their environment, by the name as
  /// it is spelt here.
  void ExportVariable(const std::string& name);

  /// Has steps remove what is protected, too.
  void AllowProtected() { allowsProtected_ = true; }

  /// What log lines are reported under. The engine moves it as it walks the tree.
  void SetCurrentPath(std::string path) { path_ = std::move(path); }
  const std::string& CurrentPath() const { return path_; }

  // The errors that the running action has logged.
  int64_t ErrorCount() const { return errors_; }
  int64_t TakeErrorCount() { return errors_.exchange(0); }
  void CountErrors(int64_t count) { errors_ += count; }

  /// What the running action has logged last; empty for nothing yet.
  const std::string& LastWords() const { return lastWords_; }
  void ForgetWords() { lastWords_.clear(); }

  /// Whether the code that runs may show user interface.
  bool InSynchronize() const { return inSynchronize_; }

  /// The text with what is secret hidden, for what is shown outside the log.
  std::string Masked(std::string_view text) const { return variables_.GetSecrets().Mask(text); }

  /// Logs what other threads have told meanwhile.
  void LogPostponed() { Events(); }

  /// The truth of a condition, blank text counting as true; raises EVekError.
  bool EvaluateCondition(std::string_view expression);

  /// Compile a script expression, or the script of an event, without running it; raise EScriptError.
  void CompileExpression(std::string_view source);
  void CompileScript(std::string_view source);

  /// Whether expressions know a name by themselves: a built-in, a constant.
  bool IsScriptName(const std::string& name);

  // IVekActionHost
  const Platform& GetPlatform() override { return platform_; }
  std::string ExpandExpression(std::string_view text) override;
  std::string ExpandPath(std::string_view text) override;
  std::string ExpandCounting(std::string_view text, int32_t& replaced) override;
  Variant GetVariableValue(std::string_view name) override;
  void SetVariable(std::string_view name, Variant value) override;
  bool IsVariableDefined(std::string_view name) override;
  void MarkVariableSecret(std::string_view name) override;
  void SendMessage(std::string_view text) override;
  void SendStatusMessage(const IVekActionLogMessage& message) override;
  void SendProgress(std::string_view text, int32_t percent) override;
  void ReportError(std::string_view text) override;
  void CountError() override { CountErrors(1); }
  void HoldLog(bool held) override;
  bool ExecuteScript(TCustomVekAction& action, IVekActionScript& script, Variant& result) override;
  bool StopSignalled() override { return stop_.Stopped(); }
  bool IsUnattended() override { return unattended_; }
  void Synchronize(const std::function<void()>& method) override;
  bool MayRemoveTree(std::string_view folder) override;
  bool MayRemoveMatches(std::string_view spec) override;
  IVekProjectObjectAPI& GetProjectObjectAPI() override { return fileSets_; }
  FolderLinks GetFolderLinks() override;
  void SetProjectModified() override {}

 private:
  // ExpressionSource
  std::optional<std::string> VariableText(std::string_view name) override;
  Variant EvaluateScript(std::string_view source) override;

  // ScriptEnvironment
  const Variant* FindVariable(std::string_view name) override { return variables_.Find(name); }
  void Log(std::string_view text) override { Events().Message(path_, text); }
  std::string NativePath(std::string_view path) override;
  IVekScriptObject* ActionByName(std::string_view name) override;
  const std::vector<std::pair<std::string, Variant>>& Constants() override;
  bool Interrupted() override { return stop_.Stopped(); }
  void EnterEngine() override { stop_.GoIntoScript(); }
  void LeaveEngine() override { stop_.ComeBack(); }

  // ProgramListener
  void BeforeProgram() override { Events().Settle(); }
  void OnProgram(std::string_view commandLine, const std::string& startDirectory) override;
  void BeginLine(ProgramStream stream) override { speaking_ = stream; }
  void EndLine() override { speaking_.reset(); }

  /// What another thread tells.
  struct Postponed {
    std::string text;
    std::string errorPath = {};  // empty for a message
  };
  void Postpone(Postponed told);

  ScriptEngine& Scripts();

  /// The action that runs, where it stands in a project's file; null for none.
  const ActionNode* CurrentNode() const;
  template <class Expand>
  std::string Expanded(std::string_view text, Expand expand);
  std::string NearVariable(std::string_view name) const;
  std::string PlaceOf(std::string_view text) const;
  std::string Explained(const EReferenceError& error, std::string_view text) const;

  void ReportPrograms();

  BuildContext* const outer_ = nullptr;
  const Platform machine_;  // beneath what reports
  ReportedProcesses processes_;
  ReportedShell shell_;
  Platform platform_;
  const Catalogue& catalogue_;
  const bool unattended_;
  Project* project_ = nullptr;
  bool allowsProtected_ = false;
  std::string path_;
  const std::string basePath_ = {};             // that of the step which runs this build's project
  std::optional<ProgramStream> speaking_;       // while messages are lines of a program's output
  bool isHeld_ = false, burstHasTime_ = false;  // the log, and the lines that came together
  std::atomic<int64_t> errors_ = 0;
  Variables variables_;
  SecretMask events_;
  std::unique_ptr<StopControl> ownStop_;  // null where there is an outer build
  StopControl& stop_;
  const std::thread::id buildThread_ = std::this_thread::get_id();
  std::mutex postponedMutex_;
  std::vector<Postponed> postponed_;
  std::atomic<bool> hasPostponed_ = false;
  FileSets fileSets_;
  std::unique_ptr<ScriptEngine> scripts_;  // made by the first script: most builds need none
  std::map<TCustomVekAction*, std::unique_ptr<IVekScriptObject>> scriptObjects_;
  bool inSynchronize_ = false;
  std::string lastWords_;
  std::map<std::string, std::optional<std::string>> replacedExports_;
};
