#include <thread>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "coreapi/Vekactionapi.h"
#include "host/Engine.h"
#include "support/ActionFixture.h"

using testing::ElementsAre;

namespace {

/// An action whose work is a test's.
class TProbe final : public TVekAction {
 public:
  TProbe(IVekActionHost& host, std::function<bool(TProbe&)> work)
      : TVekAction(host), work_(std::move(work)) {}
  const ActionClass& ClassType() const override { return TVekAction::kClass; }
  bool CanTerminate() const override { return true; }
  void TerminateAction() override { terminated = true; }
  void GetNextActionSource(bool, TVekNextAction& next) override { next = this->next; }
  using TVekAction::StopSignalled;

  std::atomic<bool> terminated = false;
  TVekNextAction next = TVekNextAction::naDefault;

 protected:
  bool Execute() override { return work_(*this); }

 private:
  std::function<bool(TProbe&)> work_;
};

bool Succeed(TProbe&) { return true; }
bool Fail(TProbe&) { return false; }

/// Works until it is asked to end.
bool WorkUntilTerminated(TProbe& probe) {
  while (!probe.terminated) std::this_thread::yield();
  return false;
}

struct EngineTest : ActionFixture, testing::Test {
  TProbe& Add(std::vector<ActionNode>& actions, std::function<bool(TProbe&)> work) {
    ActionNode& node = actions.emplace_back();
    node.typeId = "PROBE";
    node.action = std::make_unique<TProbe>(Context(), std::move(work));
    return static_cast<TProbe&>(*node.action);
  }
  TProbe& Add(std::function<bool(TProbe&)> work) { return Add(project.actions, std::move(work)); }
  std::vector<ActionNode>& Below(size_t index) { return project.actions[index].children; }

  BuildSummary RunAll() { return Engine(Context()).Run(project, "test"); }
  const StringList& Log() { return Events().events; }

  Project project;
};

TEST_F(EngineTest, ChildrenRunAfterTheirParentAndEndBeforeIt) {
  Add(Succeed);
  Add(Below(0), Succeed);
  Add(Succeed);
  EXPECT_EQ(RunAll().actions, 3);
  EXPECT_THAT(Log(), ElementsAre("build-start test", "start /1", "start /1/1", "end /1/1 success",
                                 "end /1 success", "start /2", "end /2 success", "build-end success 3 0"));
}

TEST_F(EngineTest, AFailureEndsTheBuildAndKeepsTheChildrenFromRunning) {
  Add(Fail);
  Add(Below(0), Succeed);
  Add(Succeed);
  RunAll();
  EXPECT_THAT(Log(), ElementsAre("build-start test", "start /1", "end /1 failure", "build-end failure 1 1"));
}

TEST_F(EngineTest, AnIgnoredFailureOfAChildIsConfinedToItsParent) {
  Add(Succeed).IgnoreFailure = true;
  Add(Below(0), Fail);
  Add(Below(0), Succeed);
  Add(Succeed);
  RunAll();
  EXPECT_THAT(Log(), ElementsAre("build-start test", "start /1", "start /1/1", "end /1/1 failure",
                                 "end /1 failure", "start /2", "end /2 success", "build-end success 3 2"));
  EXPECT_EQ(project.actions[0].action->ActionStatus(), TVekActionStatus::asFailedIgnored);
}

TEST_F(EngineTest, DisabledAndConditionedActionsAreSkippedWithTheirChildren) {
  Add(Succeed).Enabled = false;
  Add(Below(0), Succeed);
  Add(Succeed).Condition = "LEVEL > 2";
  Add(Succeed).Condition = "level == 2";
  Context().SetVariable("Level", int64_t{2});
  RunAll();
  EXPECT_THAT(Log(),
              ElementsAre("variable  Level=2", "build-start test", "start /1", "end /1 skipped", "start /2",
                          "end /2 skipped", "start /3", "end /3 success", "build-end success 1 0"));
  EXPECT_EQ(project.actions[1].action->ActionStatus(), TVekActionStatus::asConditionNotMet);
}

TEST_F(EngineTest, AConditionThatFailsMakesTheActionFail) {
  Add(Succeed).Condition = "noSuchVariable > 1";
  EXPECT_EQ(RunAll().result, ActionResult::Failure);
  ASSERT_EQ(Errors().size(), 1u);
  EXPECT_THAT(Errors()[0],
              testing::AllOf(testing::StartsWith("Condition: "), testing::HasSubstr("noSuchVariable")));
}

TEST_F(EngineTest, RetriesUntilAnAttemptSucceeds) {
  int attempts = 0;
  Add([&attempts](TProbe&) { return ++attempts == 3; }).RetryCount = 5;
  EXPECT_EQ(RunAll().actions, 1);
  EXPECT_EQ(attempts, 3);
  EXPECT_THAT(Errors(),
              ElementsAre("Attempt 1 of 6 failed; trying again", "Attempt 2 of 6 failed; trying again"));
}

TEST_F(EngineTest, AnActionMayKeepItsChildrenFromRunning) {
  for (const auto next : {TVekNextAction::naSkipChildren, TVekNextAction::naSkipGuarded}) {
    Add(Succeed).next = next;
    Add(project.actions.back().children, Fail);
  }
  EXPECT_EQ(RunAll().actions, 2);
  // The engine counts on these positions, which actions name by number.
  EXPECT_EQ(static_cast<int>(TVekNextAction::naSkipChildren), 3);
  EXPECT_EQ(static_cast<int>(TVekNextAction::naSkipGuarded), 4);
  EXPECT_EQ(static_cast<int>(TVekActionStatus::asConditionNotMet), 9);
}

TEST_F(EngineTest, ExceptionsDoNotLeaveAnAction) {
  Add([](TProbe&) -> bool { throw EVekError("lost it"); }).IgnoreFailure = true;
  Add([](TProbe&) -> bool { throw 1; });
  RunAll();
  EXPECT_THAT(Errors(), ElementsAre("Contract breach: an exception left Execute: lost it",
                                    "Contract breach: an exception left Execute: unknown exception"));
}

TEST_F(EngineTest, TheTimeOfAnActionTakesInItsChildren) {
  Add(Succeed).TimeoutSeconds = 1;
  TProbe& child = Add(Below(0), WorkUntilTerminated);
  Add(Below(0), Succeed);
  child.IgnoreFailure = true;
  EXPECT_EQ(RunAll().result, ActionResult::Failure);
  EXPECT_THAT(Log(),
              ElementsAre("build-start test", "start /1", "start /1/1", "end /1/1 failure",
                          "error /1 Timed out after 1 seconds", "end /1 failure", "build-end failure 2 2"));
}

TEST_F(EngineTest, AStopEndsWhatRunsAndEverythingAfterIt) {
  Add(Succeed).IgnoreFailure = true;
  Add(Below(0), [this](TProbe& probe) {
    std::thread user([this] { Context().Stop().RequestStop(); });
    const bool result = WorkUntilTerminated(probe);
    EXPECT_TRUE(probe.StopSignalled());
    user.join();
    return result;
  });
  Add(Succeed);
  RunAll();
  EXPECT_THAT(Log(), ElementsAre("build-start test", "start /1", "start /1/1", "end /1/1 stopped",
                                 "end /1 stopped", "build-end stopped 2 0"));
}

TEST_F(EngineTest, AStopCutsTheDelayBeforeARetryShort) {
  TProbe& probe = Add([this](TProbe&) {
    Context().Stop().RequestStop();
    return false;
  });
  probe.RetryCount = 1;
  probe.RetryDelaySeconds = 4000000000;
  EXPECT_EQ(RunAll().result, ActionResult::Stopped);
}

TEST_F(EngineTest, AScriptThatNeverEndsIsEndedByTheTimeOut) {
  Add(Succeed).Condition = "(function () { for (;;) {} })()";
  project.actions[0].action->TimeoutSeconds = 1;
  EXPECT_EQ(RunAll().result, ActionResult::Failure);
  EXPECT_EQ(Errors().size(), 2u);
  EXPECT_EQ(Errors().back(), "Timed out after 1 seconds");
}

}  // namespace
