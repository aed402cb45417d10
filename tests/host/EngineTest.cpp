#include <thread>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "coreapi/Vekbaseiteratoraction.h"
#include "support/ProjectFixture.h"

using testing::ElementsAre;

namespace {

bool Succeed(TProbe&) { return true; }
bool Fail(TProbe&) { return false; }

/// Works until it is asked to end.
bool WorkUntilTerminated(TProbe& probe) {
  while (!probe.terminated) std::this_thread::yield();
  return false;
}

struct EngineTest : ProjectFixture, testing::Test {};

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
  EXPECT_THAT(Log(),
              ElementsAre("build-start test", "start /1", "error /1 The step failed and said nothing of why",
                          "end /1 failure", "build-end failure 1 1"));
}

TEST_F(EngineTest, AnIgnoredFailureOfAChildIsConfinedToItsParent) {
  Add(Succeed).IgnoreFailure = true;
  Add(Below(0), Fail);
  Add(Below(0), Succeed);
  Add(Succeed);
  RunAll();
  EXPECT_THAT(Log(), ElementsAre("build-start test", "start /1", "start /1/1",
                                 testing::StartsWith("error /1/1 "), "end /1/1 failure", "end /1 failure",
                                 "start /2", "end /2 success", "build-end success 3 2"));
  EXPECT_EQ(project.actions[0].action->ActionStatus(), TVekActionStatus::asFailedIgnored);
}

TEST_F(EngineTest, DisabledAndConditionedActionsAreSkippedWithTheirChildren) {
  Add(Succeed).Enabled = false;
  Add(Below(0), Succeed);
  Add(Succeed).Condition = "LEVEL > 2";
  Add(Succeed).Condition = "level == 2";
  Context().SetVariable("Level", int64_t{2});
  RunAll();
  EXPECT_THAT(Log(), ElementsAre("build-start test", "start /1", "end /1 skipped", "start /2",
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
  Add([&attempts](TProbe& probe) {
    probe.SendMessage("trying");
    return ++attempts == 3;
  }).RetryCount = 5;
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
              ElementsAre("build-start test", "start /1", "start /1/1", "error /1 Timed out after 1 seconds",
                          "end /1/1 failure", "end /1 failure", "build-end failure 2 2"));
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
  EXPECT_EQ(Errors().front(), "Timed out after 1 seconds");
}

/// A loop over numbers whose count a test may change as it goes.
class TCounter final : public TVekBaseIterator {
 public:
  explicit TCounter(IVekActionHost& host, int32_t count) : TVekBaseIterator(host), count(count) {}
  const ActionClass& ClassType() const override { return TVekBaseIterator::kClass; }
  int32_t count;
  std::string failsBefore, failsAfterEach;
  using TVekBaseIterator::assignsVariables;

 protected:
  void BeforeFirstIteration() override {
    SendMessage("before");
    if (!failsBefore.empty()) throw EIteratorException(failsBefore);
    SetIterationCount(count);
  }
  Variant GetCurrentValue() override { return int64_t{GetCurrentIteration()}; }
  void AfterEachIteration() override {
    if (!failsAfterEach.empty()) throw EIteratorException(failsAfterEach);
    SetIterationCount(count);
  }
  void AfterLastIteration() override { SendMessage("after"); }
};

struct LoopTest : EngineTest {
  TCounter& AddLoop(int32_t count, std::string_view variable) {
    auto& loop = Add<TCounter>(project.actions, count);
    loop.SetLoopVariable(variable);
    return loop;
  }
};

TEST_F(LoopTest, RunsTheChildrenOncePerValue) {
  AddLoop(2, "I");
  Add(Below(0), Succeed);
  EXPECT_EQ(RunAll().actions, 3);
  EXPECT_THAT(
      Log(), ElementsAre("build-start test", "start /1", "message /1 before", "variable /1 I=1", "start /1/1",
                         "end /1/1 success", "variable /1 I=2", "start /1/1", "end /1/1 success",
                         "message /1 after", "end /1 success", "build-end success 3 0"));
}

TEST_F(LoopTest, LoopsNestAndBeginAnewEachTime) {
  AddLoop(2, "I");
  Add<TCounter>(Below(0), 2).SetLoopVariable("J");
  std::string seen;
  Add(Below(0)[0].children, [&](TProbe&) {
    seen += Context().ExpandExpression("%I%%J% ");
    return true;
  });
  RunAll();
  EXPECT_EQ(seen, "11 12 21 22 ");
}

TEST_F(LoopTest, AFailingChildEndsTheLoopUnlessIgnored) {
  TCounter& loop = AddLoop(3, "I");
  TProbe& child = Add(Below(0), Fail);
  BuildSummary summary = RunAll();
  EXPECT_EQ(summary.result, ActionResult::Failure);
  EXPECT_EQ(summary.actions, 2);
  child.IgnoreFailure = true;
  summary = RunAll();
  EXPECT_EQ(summary.result, ActionResult::Success);
  EXPECT_EQ(summary.actions, 4);
  EXPECT_EQ(loop.GetCurrentIteration(), 3);
}

TEST_F(LoopTest, AnAttemptBeginsTheLoopAnew) {
  AddLoop(3, "I").RetryCount = 1;
  int runs = 0;
  Add(Below(0), [&runs](TProbe&) { return ++runs != 2; });
  EXPECT_EQ(RunAll().result, ActionResult::Success);
  EXPECT_EQ(runs, 2 + 3);
}

TEST_F(LoopTest, ResetMakesTheNextPassTheFirst) {
  TCounter& loop = AddLoop(2, "I");
  std::string seen;
  Add(Below(0), [&](TProbe&) {
    seen += std::to_string(loop.GetCurrentIteration());
    if (seen == "12") loop.Reset();
    return true;
  });
  RunAll();
  EXPECT_EQ(seen, "1212");
  EXPECT_THAT(Lines(), ElementsAre("before", "before", "after"));
}

TEST_F(LoopTest, TheCountIsLookedAtAfterEachPass) {
  TCounter& loop = AddLoop(1, "I");
  Add(Below(0), [&loop](TProbe&) {
    if (loop.count < 4) ++loop.count;
    return true;
  });
  EXPECT_EQ(RunAll().actions, 5);
}

TEST_F(LoopTest, AnIteratorThatAssignsItsVariablesLeavesTheLoopVariableAlone) {
  AddLoop(2, "I").assignsVariables = true;
  RunAll();
  EXPECT_FALSE(Context().IsVariableDefined("I"));
}

TEST_F(LoopTest, WhatAnIteratorRaisesFailsItUnderItsOwnWords) {
  AddLoop(2, "").failsBefore = "no list";
  AddLoop(2, "").failsAfterEach = "lost the list";
  project.actions[0].action->IgnoreFailure = true;
  EXPECT_EQ(RunAll().result, ActionResult::Failure);
  EXPECT_THAT(Errors(), ElementsAre("no list", "lost the list"));
}

TEST_F(LoopTest, AStopIsSeenBetweenPasses) {
  AddLoop(1000, "I");
  int runs = 0;
  Add(Below(0), [&](TProbe&) {
    if (++runs == 3) Context().Stop().RequestStop();
    return true;
  });
  EXPECT_EQ(RunAll().result, ActionResult::Stopped);
  EXPECT_EQ(runs, 3);
}

TEST_F(EngineTest, WhatAnotherThreadSendsComesBeforeTheNextEvent) {
  Add([this](TProbe&) {
    std::thread([this] { Context().SendMessage("from afar"); }).join();
    return true;
  });
  RunAll();
  EXPECT_THAT(Log(), ElementsAre("build-start test", "start /1", "message /1 from afar", "end /1 success",
                                 "build-end success 1 0"));
}

}  // namespace
