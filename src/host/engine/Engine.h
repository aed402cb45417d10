#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/engine/StopControl.h"
#include "host/log/EventSink.h"
#include "host/project/Project.h"

class BuildContext;
class TCustomVekRunProject;

struct EngineOptions {
  bool strict = false;     // an action that logged errors has failed, whatever its answer
  bool keepGoing = false;  // a failed action fails what it stands in, but what comes after it runs
};

/// Executes a project's tree of actions. An attempt at an action takes in its children; a failed action ends
/// the build unless its failure is ignored, and the children of a failed action do not run.
class Engine {
 public:
  explicit Engine(BuildContext& context, const EngineOptions& options = {});

  /// `projectName` is what the log calls the build.
  BuildSummary Run(Project& project, std::string_view projectName);

  /// Ends in the log what is running, in place of a build thread that is not coming back from a script.
  BuildSummary Abandon();

 private:
  /// An action that has started and not ended.
  struct OpenAction {
    ActionPlace place;
    double start;
    int64_t errorsOfParent;
  };

  ActionResult RunActions(std::vector<ActionNode>& actions, const std::string& parentPath);
  ActionResult RunAction(ActionNode& node, const std::string& path);
  ActionResult Decide(ActionNode& node, const std::string& path);
  ActionResult RunAttempts(ActionNode& node, const std::string& path);
  ActionResult RunAttempt(ActionNode& node, const std::string& path);
  ActionResult RunPass(ActionNode& node, const std::string& path, int64_t pass, TVekNextAction& next);
  ActionResult RunNested(TCustomVekRunProject& action, const std::string& path);
  ActionResult RunPasses(ActionNode& node, const std::string& path);
  void ReportReason(const TCustomVekAction& action);
  void AbandonActions();
  void EndAction(ActionResult result, bool ignoresFailure);
  void Count(const ActionOutcome& outcome);
  std::optional<bool> EvaluateCondition(TCustomVekAction& action, const std::string& path);
  bool CanKeepTime(const TCustomVekAction& action);
  void EndBuild(ActionResult result);
  bool TimedOut(const StopControl::Running& running);
  ActionResult FailureOrStop() const;

  BuildContext& context_;
  const EngineOptions options_;
  BuildSummary summary_;
  std::string passes_;  // of the loops that run, outermost first
  int forgiving_ = 0;   // how much around the running action goes on when it fails
  double start_ = 0;
  std::vector<OpenAction> open_;  // innermost last
  Engine* inner_ = nullptr;       // of a project that runs as a step
};
