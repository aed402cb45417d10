#pragma once

#include <atomic>
#include <functional>

#include "coreapi/Vekactionapi.h"
#include "host/engine/Engine.h"
#include "support/ActionFixture.h"

/// An action whose work is a test's.
class TProbe final : public TVekAction {
 public:
  TProbe(IVekActionHost& host, std::function<bool(TProbe&)> work)
      : TVekAction(host), work_(std::move(work)) {}
  const ActionClass& ClassType() const override { return TVekAction::kClass; }
  bool CanTerminate() const override { return true; }
  void TerminateAction() override { terminated = true; }
  void GetNextActionSource(bool, TVekNextAction& next) override { next = this->next; }
  using TVekAction::SendMessage;
  using TVekAction::StopSignalled;

  std::atomic<bool> terminated = false;
  TVekNextAction next = TVekNextAction::naDefault;

 protected:
  bool Execute() override { return work_(*this); }

 private:
  std::function<bool(TProbe&)> work_;
};

/// A project that a test puts together, and a real host to build it.
struct ProjectFixture : ActionFixture {
  using ActionFixture::ActionFixture;

  template <class Action, class... Arguments>
  Action& Add(std::vector<ActionNode>& actions, Arguments&&... arguments) {
    ActionNode& node = actions.emplace_back();
    node.typeId = "TEST";
    node.action = std::make_unique<Action>(Context(), std::forward<Arguments>(arguments)...);
    return static_cast<Action&>(*node.action);
  }
  TProbe& Add(std::vector<ActionNode>& actions, std::function<bool(TProbe&)> work) {
    return Add<TProbe>(actions, std::move(work));
  }
  TProbe& Add(std::function<bool(TProbe&)> work) { return Add(project.actions, std::move(work)); }
  std::vector<ActionNode>& Below(size_t index) { return project.actions[index].children; }

  BuildSummary RunAll() {
    Events().Clear();
    return Engine(Context()).Run(project, "test");
  }
  const StringList& Log() { return Events().events; }

  Project project;
};
