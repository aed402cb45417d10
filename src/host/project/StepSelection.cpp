#include "host/project/StepSelection.h"

#include "host/project/Quoted.h"

namespace {

struct Step {
  std::string path;
  ActionNode& node;
};

void Collect(std::vector<ActionNode>& actions, const std::string& parentPath, std::vector<Step>& steps) {
  for (size_t i = 0; i < actions.size(); ++i) {
    const std::string path = parentPath + '/' + std::to_string(i + 1);
    steps.push_back({path, actions[i]});
    Collect(actions[i].children, path, steps);
  }
}

const Step& Find(const std::vector<Step>& steps, const std::string& option, const std::string& text) {
  std::vector<std::string_view> known;
  for (const Step& step : steps) {
    const std::string& name = step.node.action->Name;
    if (step.path == text || (!name.empty() && SameText(name, text))) return step;
    known.push_back(name.empty() ? step.path : name);
  }
  throw EProjectError(option + ": the project has no step " + Quoted(text) + Suggestion(text, known));
}

bool IsBelow(const std::string& path, const std::string& above) { return path.starts_with(above + '/'); }

}  // namespace

void ChooseSteps(Project& project, const StringList& only, const StringList& skip) {
  std::vector<Step> steps;
  Collect(project.actions, "", steps);
  for (const Step& step : steps) step.node.chosen = only.empty();
  for (const std::string& text : only) {
    const std::string& chosen = Find(steps, "--only", text).path;
    for (const Step& step : steps) {
      const bool belongs = step.path == chosen || IsBelow(step.path, chosen) || IsBelow(chosen, step.path);
      if (belongs) step.node.chosen = true;
    }
  }
  for (const std::string& text : skip) Find(steps, "--skip", text).node.chosen = false;
}
