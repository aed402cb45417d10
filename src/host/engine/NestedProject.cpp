#include "host/engine/NestedProject.h"

#include <algorithm>

#include "host/project/ProjectFile.h"
#include "host/project/Quoted.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/Platform.h"

namespace {

// Beyond this there is a mistake, and an end to the stack.
constexpr std::ptrdiff_t kDeepestStep = 100;

/// A project that is running must not be started again below itself, by whatever name.
void RefuseRunning(const BuildContext& outer, const Platform& platform, const std::string& file) {
  const std::string wanted = platform.environment->FullPath(file);
  const auto identity = platform.entries->Identity(file);
  std::string chain = wanted;
  for (const BuildContext* build = &outer; build; build = build->Outer()) {
    const std::string& running = build->RunningFile();
    if (running.empty()) continue;
    chain.insert(0, running + " -> ");
    if (running == wanted || (identity && identity == platform.entries->Identity(running))) {
      throw EVekError("the project would run itself: " + chain);
    }
  }
}

Project Load(BuildContext& outer, BuildContext& context, const std::string& file) {
  if (std::ranges::count(outer.CurrentPath(), '/') >= kDeepestStep) {
    throw EVekError(file + ": steps and projects are nested more than " + std::to_string(kDeepestStep) +
                    " deep");
  }
  RefuseRunning(outer, outer.GetPlatform(), file);
  return LoadProject(outer.GetPlatform(), file, outer.GetCatalogue(), context);
}

}  // namespace

NestedProject::NestedProject(BuildContext& outer, const std::string& file,
                             std::span<const VariableDefinition> definitions)
    : context_(outer), project_(Load(outer, context_, file)) {
  for (const std::string& line : NearMisses(project_, definitions)) outer.SendMessage(line);
  DefineVariables(context_, project_, definitions);
}

void NestedProject::HandOver(const std::string& name, BuildContext& outer) {
  const Variables& variables = context_.GetVariables();
  const Variant* value = variables.Find(name);
  if (!value) {
    std::vector<std::string_view> names;
    for (const auto& [known, held] : variables.All()) names.push_back(known);
    throw EVekError("the project has no variable " + Quoted(name) + Suggestion(name, names));
  }
  if (variables.GetSecrets().IsSecret(name)) outer.MarkVariableSecret(name);
  outer.SetVariable(name, *value);
}
