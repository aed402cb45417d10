#include "host/engine/Engine.h"

#include <system_error>

#include "host/engine/ActionTitle.h"
#include "host/engine/BuildContext.h"
#include "host/engine/FailingSettings.h"
#include "host/engine/NestedProject.h"
#include "host/engine/RunProjectAction.h"
#include "platform/Clock.h"
#include "platform/Platform.h"

namespace {

void ResetStatus(std::vector<ActionNode>& actions) {
  for (ActionNode& node : actions) {
    node.action->ResetBuildStatus();
    ResetStatus(node.children);
  }
}

TVekActionStatus StatusAfter(ActionResult result, bool ignored) {
  switch (result) {
    case ActionResult::Success:
      return TVekActionStatus::asSucceeded;
    case ActionResult::Failure:
      return ignored ? TVekActionStatus::asFailedIgnored : TVekActionStatus::asFailed;
    case ActionResult::Skipped:
      return TVekActionStatus::asSkipped;
    case ActionResult::Stopped:
      return TVekActionStatus::asStopped;
  }
  return TVekActionStatus::asNone;
}

ActionResult Skip(TCustomVekAction& action, TVekActionStatus reason) {
  action.SetActionStatus(reason);
  return ActionResult::Skipped;
}

bool RunsChildren(TVekNextAction next) {
  return next == TVekNextAction::naDefault || next == TVekNextAction::naChildren;
}

/// By its class, since this is asked at every pass.
bool RunsProject(const TCustomVekAction& action) { return &action.ClassType() == &TVekRunProject::Class(); }

}  // namespace

Engine::Engine(BuildContext& context, const EngineOptions& options) : context_(context), options_(options) {}

BuildSummary Engine::Run(Project& project, std::string_view projectName) {
  start_ = context_.GetPlatform().clock->Seconds();
  summary_ = {};
  context_.SetProject(&project);
  ResetStatus(project.actions);
  context_.Events().BuildStart(projectName);
  EndBuild(RunActions(project.actions, ""));
  context_.SetProject(nullptr);
  return summary_;
}

void Engine::EndBuild(ActionResult result) {
  summary_.result = result;
  summary_.seconds = context_.GetPlatform().clock->Seconds() - start_;
  context_.Events().BuildEnd(summary_);
}

BuildSummary Engine::Abandon() {
  context_.HoldLog(false);
  context_.LogPostponed();
  AbandonActions();
  EndBuild(FailureOrStop());
  return summary_;
}

void Engine::AbandonActions() {
  if (inner_) {
    inner_->AbandonActions();
    summary_.AddCounts(inner_->summary_);
  } else {
    context_.ReportError("The script goes on although it was asked to end; the build ends without it");
  }
  while (!open_.empty()) {
    context_.SetCurrentPath(std::string(open_.back().place.path));
    EndAction(FailureOrStop(), false);
  }
}

/// The actions in order; after a failure only those that run always.
ActionResult Engine::RunActions(std::vector<ActionNode>& actions, const std::string& parentPath) {
  StopControl& stop = context_.Stop();
  bool failed = false;
  for (size_t i = 0; i < actions.size() && !stop.StopRequested(); ++i) {
    const TCustomVekAction& action = *actions[i].action;
    const bool isGivenUp = stop.Stopped() || (failed && !options_.keepGoing);
    if (isGivenUp && !action.Always) continue;
    std::optional<StopControl::Shield> shield;
    if (stop.Stopped()) shield.emplace(stop);
    const ActionResult result = RunAction(actions[i], parentPath + '/' + std::to_string(i + 1));
    context_.SetCurrentPath(parentPath);
    failed = failed || (result == ActionResult::Failure && !action.IgnoreFailure);
  }
  return failed || stop.Stopped() ? FailureOrStop() : ActionResult::Success;
}

ActionResult Engine::RunAction(ActionNode& node, const std::string& path) {
  const double start = context_.GetPlatform().clock->Seconds();
  const std::string title = ActionTitle(*node.action, context_.GetVariables());
  const std::string passes = passes_;
  const ActionPlace place{path, node.typeId, title, !node.children.empty() || RunsProject(*node.action),
                          passes};
  const std::string stepName = path + ' ' + title;
  const StopControl::Step step(context_.Stop(), stepName);
  context_.SetCurrentPath(path);
  context_.Events().ActionStart(place);
  open_.push_back({place, start, context_.TakeErrorCount()});
  forgiving_ += node.action->IgnoreFailure;
  const ActionResult result = Decide(node, path);
  forgiving_ -= node.action->IgnoreFailure;
  EndAction(result, node.action->IgnoreFailure);
  return result;
}

void Engine::EndAction(ActionResult result, bool ignoresFailure) {
  const OpenAction open = open_.back();
  open_.pop_back();
  ActionOutcome outcome;
  outcome.forgiven = forgiving_ > 0;
  outcome.result = result;
  outcome.ignored = result == ActionResult::Failure && ignoresFailure;
  outcome.errors = context_.TakeErrorCount();
  outcome.seconds = context_.GetPlatform().clock->Seconds() - open.start;
  Count(outcome);
  context_.Events().ActionEnd(open.place, outcome);
  context_.CountErrors(open.errorsOfParent);
}

void Engine::Count(const ActionOutcome& outcome) {
  if (outcome.result != ActionResult::Skipped) ++summary_.actions;
  if (outcome.result == ActionResult::Failure) ++summary_.failures;
  if (outcome.ignored) ++summary_.ignored;
  if (outcome.result != ActionResult::Success || outcome.errors == 0) return;
  summary_.errors += outcome.errors;
  ++summary_.erroneous;
}

/// Whether the action runs at all, and if so, how it ends.
ActionResult Engine::Decide(ActionNode& node, const std::string& path) {
  TCustomVekAction& action = *node.action;
  if (!node.chosen) return Skip(action, TVekActionStatus::asSkipped);
  if (!action.Enabled) return Skip(action, TVekActionStatus::asDisabled);
  if (!CanKeepTime(action)) return ActionResult::Failure;
  const std::optional<bool> condition = EvaluateCondition(action, path);
  if (condition == false) return Skip(action, TVekActionStatus::asConditionNotMet);
  const ActionResult result = condition ? RunAttempts(node, path) : FailureOrStop();
  // An action that gave itself a status while it ran keeps it.
  if (result != ActionResult::Success || action.ActionStatus() == TVekActionStatus::asRunning) {
    action.SetActionStatus(StatusAfter(result, action.IgnoreFailure));
  }
  return result;
}

/// Nothing when the condition fails, which is then reported.
std::optional<bool> Engine::EvaluateCondition(TCustomVekAction& action, const std::string& path) {
  const StopControl::Running running(context_.Stop(), action, path, action.TimeoutSeconds);
  try {
    return context_.EvaluateCondition(action.Condition);
  } catch (const std::exception& error) {
    context_.ReportError(std::string("Condition: ") + error.what());
    TimedOut(running);
    return {};
  }
}

/// Tells so, before anything that comes of it.
bool Engine::TimedOut(const StopControl::Running& running) {
  if (!running.TimedOut()) return false;
  context_.LogPostponed();
  return true;
}

bool Engine::CanKeepTime(const TCustomVekAction& action) {
  if (action.TimeoutSeconds == 0) return true;
  try {
    context_.Stop().KeepTime();
    return true;
  } catch (const std::system_error& error) {
    context_.ReportError(std::string("TimeoutSeconds cannot be kept: ") + error.what());
    return false;
  }
}

ActionResult Engine::RunAttempts(ActionNode& node, const std::string& path) {
  const uint64_t attempts = uint64_t{node.action->RetryCount} + 1;
  for (uint64_t attempt = 1;; ++attempt) {
    const bool isLast = attempt == attempts;
    forgiving_ += !isLast;
    const ActionResult result = RunAttempt(node, path);
    forgiving_ -= !isLast;
    if (result != ActionResult::Failure || isLast || context_.Stop().Stopped()) return result;
    context_.ReportError("Attempt " + std::to_string(attempt) + " of " + std::to_string(attempts) +
                         " failed; trying again");
    if (!context_.Stop().Wait(node.action->RetryDelaySeconds)) return FailureOrStop();
  }
}

ActionResult Engine::RunAttempt(ActionNode& node, const std::string& path) {
  TCustomVekAction& action = *node.action;
  const StopControl::Running running(context_.Stop(), action, path, action.TimeoutSeconds);
  // What asks running actions to terminate may have come before this one was among them.
  if (context_.Stop().Stopped()) return TimedOut(running) ? ActionResult::Failure : FailureOrStop();
  // What an attempt that broke off left behind is no part of this one.
  action.ResetBuildStatus();
  action.SetActionStatus(TVekActionStatus::asRunning);
  context_.TakeErrorCount();
  context_.ForgetWords();
  const ActionResult result = RunPasses(node, path);
  if (TimedOut(running)) return ActionResult::Failure;
  if (result == ActionResult::Success && options_.strict && context_.ErrorCount() > 0) {
    context_.ReportError("The step logged errors, and --strict makes it fail for them");
    return ActionResult::Failure;
  }
  return result == ActionResult::Failure ? FailureOrStop() : result;
}

ActionResult Engine::RunPasses(ActionNode& node, const std::string& path) {
  bool failed = false;
  for (int64_t pass = 1;; ++pass) {
    auto next = TVekNextAction::naDefault;
    const ActionResult result = RunPass(node, path, pass, next);
    failed = failed || result == ActionResult::Failure;
    const bool mayGoOn =
        result == ActionResult::Success ||
        (result == ActionResult::Failure && options_.keepGoing && !context_.Stop().Stopped());
    if (next == TVekNextAction::naChildren && mayGoOn) continue;
    return failed && result == ActionResult::Success ? ActionResult::Failure : result;
  }
}

/// The action and then its children, unless it wants none; `next` tells whether it is to be run again.
ActionResult Engine::RunPass(ActionNode& node, const std::string& path, int64_t pass, TVekNextAction& next) {
  TCustomVekAction& action = *node.action;
  const bool runsProject = RunsProject(action);
  if (runsProject && !node.children.empty()) {
    context_.ReportError("No actions can stand below this one: those of the project do");
    return ActionResult::Failure;
  }
  if (!action.Run()) {
    if (context_.ErrorCount() == 0) ReportReason(action);
    return ActionResult::Failure;
  }
  if (runsProject) return RunNested(static_cast<TCustomVekRunProject&>(action), path);
  action.GetNextActionSource(false, next);
  if (!RunsChildren(next)) return ActionResult::Success;
  const size_t outerPasses = passes_.size();
  if (next == TVekNextAction::naChildren) {
    passes_.append(passes_.empty() ? "" : ".").append(std::to_string(pass));
  }
  const ActionResult result = RunActions(node.children, path);
  passes_.resize(outerPasses);
  context_.SetCurrentPath(path);
  return result;
}

/// The project that the action has loaded, its actions as the children of this one.
ActionResult Engine::RunNested(TCustomVekRunProject& action, const std::string& path) {
  const std::unique_ptr<NestedProject> nested = action.TakeProject();
  BuildContext& context = nested->Context();
  context.SetProject(&nested->GetProject());
  Engine engine(context, options_);
  engine.passes_ = passes_;
  engine.forgiving_ = forgiving_;
  inner_ = &engine;
  const ActionResult result = engine.RunActions(nested->GetProject().actions, path);
  inner_ = nullptr;
  context.SetProject(nullptr);
  summary_.AddCounts(engine.summary_);
  if (result == ActionResult::Stopped) return result;
  const bool isComplete = action.TakeOver(*nested);
  return isComplete ? result : ActionResult::Failure;
}

/// Says what is known of a failure for which the action has reported no error.
void Engine::ReportReason(const TCustomVekAction& action) {
  // Its own words may say why without being marked as an error.
  const std::string& words = context_.LastWords();
  if (IsComplaint(words) || context_.Stop().Stopped()) return context_.CountError();
  const std::string settings = SettingsThatFail(action);
  if (!settings.empty()) {
    context_.ReportError("The step failed because of " + settings);
  } else if (words.empty()) {
    context_.ReportError("The step failed and said nothing of why");
  } else {
    context_.CountError();
  }
}

/// What a failure comes to: it is no fault of the action's when the build is to stop.
ActionResult Engine::FailureOrStop() const {
  return context_.Stop().StopRequested() ? ActionResult::Stopped : ActionResult::Failure;
}
