#include "host/validation/ProjectCheck.h"

#include <algorithm>
#include <set>

#include "host/engine/BuildContext.h"
#include "host/expressions/Expressions.h"
#include "host/project/Project.h"
#include "host/project/Quoted.h"
#include "host/scripts/ScriptEngine.h"
#include "host/validation/ExpressionNames.h"
#include "host/validation/KnownVariables.h"
#include "host/validation/NeededProperties.h"
#include "host/validation/NestedProjectCheck.h"
#include "host/validation/Texts.h"
#include "platform/Environment.h"
#include "platform/Platform.h"

namespace {

/// Collects what is wrong in one place of the project; the same thing once.
class Finding {
 public:
  Finding(std::vector<Problem>& problems, Problem place) : problems_(problems), place_(std::move(place)) {}

  void Add(std::string message) const {
    Problem problem = place_;
    problem.message = std::move(message);
    const auto isSame = [&problem](const Problem& other) {
      return other.path == problem.path && other.title == problem.title && other.message == problem.message;
    };
    if (std::ranges::none_of(problems_, isSame)) problems_.push_back(std::move(problem));
  }

 private:
  std::vector<Problem>& problems_;
  const Problem place_;
};

/// What texts can refer to.
struct KnownNames {
  /// Tells the steps that a script asks for and does not get.
  void CheckActions(std::string_view script, const Finding& finding, const std::string& place = "") const {
    for (const std::string& name : ActionsNamedIn(script)) {
      if (FindActionByName(project.actions, name)) continue;
      finding.Add(place + "the project has no step " + Quoted(name) + NearestAction(name));
    }
  }

  std::string NearestAction(std::string_view name) const {
    std::vector<std::string_view> names;
    AddActionNames(project.actions, names);
    return Suggestion(name, names);
  }

  static void AddActionNames(const std::vector<ActionNode>& actions, std::vector<std::string_view>& names) {
    for (const ActionNode& node : actions) {
      if (!node.action->Name.empty()) names.push_back(node.action->Name);
      AddActionNames(node.children, names);
    }
  }

  void CheckVariable(std::string_view name, const Finding& finding, const std::string& place = "") const {
    if (withoutValue.contains(name)) {
      finding.Add(place + "variable " + Quoted(name) +
                  " has no value yet: declared values are expanded in order of declaration");
    } else if (!variables.MayExist(name)) {
      finding.Add(place + "unknown variable " + Quoted(name) + variables.Nearest(name));
    }
  }

  const Project& project;
  const KnownVariables variables;
  std::set<std::string_view, LessNoCase> withoutValue = {};  // while declared values are looked at
};

/// Stands in for a build when a text is expanded to see what is wrong with it: values are of no account.
class ReferenceCheck final : public ExpressionSource {
 public:
  ReferenceCheck(BuildContext& context, const KnownNames& known, const Finding& finding)
      : context_(context), known_(known), finding_(finding) {}

  void Check(std::string_view text) {
    try {
      ExpandText(text, *this);
    } catch (const EVekError& error) {
      finding_.Add(error.what());
    }
  }

  std::optional<std::string> VariableText(std::string_view name) override {
    if (!context_.GetPlatform().environment->Variable(name)) known_.CheckVariable(name, finding_);
    return "";
  }

  Variant EvaluateScript(std::string_view source) override {
    CheckExpression(source, "expression " + Quoted("$(" + std::string(source) + ")") + ": ");
    return {};
  }

  void CheckExpression(std::string_view source, const std::string& place = "") {
    try {
      context_.CompileExpression(source);
    } catch (const EScriptError& error) {
      return finding_.Add(place + error.what());
    }
    known_.CheckActions(source, finding_, place);
    for (const std::string& name : NamesReadBy(source)) {
      if (!context_.IsScriptName(name)) known_.CheckVariable(name, finding_, place);
    }
  }

 private:
  BuildContext& context_;
  const KnownNames& known_;
  const Finding& finding_;
};

/// The display title of a property; its name where it has none.
std::string TitleOf(const TCustomVekAction& action, std::string_view property) {
  StringList aliases;
  action.GetPropertyAlias(aliases);
  std::string title(property);
  for (const std::string& alias : aliases) {
    const size_t equals = alias.find('=');
    if (equals != std::string::npos && SameText(alias.substr(0, equals), property)) {
      title = alias.substr(equals + 1);
    }
  }
  return title;
}

class Collector final : public IVekActionValidationError {
 public:
  using Report = std::function<void(std::string_view title, std::string_view message)>;
  explicit Collector(Report report) : report_(std::move(report)) {}

  void AddError(std::string_view title, std::string_view message) override {
    reported_ = true;
    report_(title, message);
  }
  bool Reported() const { return reported_; }

 private:
  Report report_;
  bool reported_ = false;
};

class Check {
 public:
  Check(const Project& project, const std::string& fileName, BuildContext& context,
        std::span<const VariableDefinition> definitions)
      : project_(project),
        fileName_(fileName),
        context_(context),
        definitions_(definitions),
        known_{project, {project, definitions}} {}

  std::vector<Problem> Run() {
    CheckDeclarations();
    for (const FileSetDeclaration& fileSet : project_.fileSets) CheckFileSet(fileSet);
    CheckActions(project_.actions, "");
    return std::move(problems_);
  }

 private:
  void CheckDeclarations() {
    for (const VariableDeclaration& variable : project_.variables) known_.withoutValue.insert(variable.name);
    for (std::string_view name : kPredefinedVariables) known_.withoutValue.erase(name);
    for (const VariableDefinition& given : definitions_) known_.withoutValue.erase(given.name);
    for (const VariableDeclaration& variable : project_.variables) {
      const auto isIt = [&](const VariableDefinition& given) { return SameText(given.name, variable.name); };
      if (std::ranges::none_of(definitions_, isIt)) {
        CheckText({{}, variable.line, "", "", "variable " + variable.name, ""}, variable.text);
      }
      known_.withoutValue.erase(variable.name);
    }
  }

  Finding At(Problem place) {
    place.file = fileName_;
    return Finding(problems_, std::move(place));
  }

  void CheckText(Problem place, std::string_view text) {
    const Finding finding = At(std::move(place));
    ReferenceCheck(context_, known_, finding).Check(text);
  }

  void CheckFileSet(const FileSetDeclaration& fileSet) {
    const Problem place{{}, fileSet.line, "", "", "file set " + Quoted(fileSet.name), ""};
    CheckText(place, fileSet.baseDirectory);
    for (const StringList* patterns : {&fileSet.includes, &fileSet.excludes}) {
      for (const std::string& pattern : *patterns) CheckText(place, pattern);
    }
  }

  void CheckActions(const std::vector<ActionNode>& actions, const std::string& parentPath) {
    for (size_t i = 0; i < actions.size(); ++i) {
      const ActionNode& node = actions[i];
      if (!node.action->Enabled) continue;
      const std::string path = parentPath + '/' + std::to_string(i + 1);
      CheckSettings(node, path);
      CheckNeeded(node, path);
      CheckNestedProject(node, context_.GetPlatform(), [&](std::string_view property, std::string message) {
        At({{}, node.LineOf(property), path, node.typeId, TitleOf(*node.action, property), ""})
            .Add(std::move(message));
      });
      CheckProperties(node, path);
      CheckScripts(node, path);
      CheckActions(node.children, path);
    }
  }

  void CheckSettings(const ActionNode& node, const std::string& path) {
    Collector collector([&](std::string_view title, std::string_view message) {
      At({{}, LineOfTitle(node, title), path, node.typeId, std::string(title), ""}).Add(std::string(message));
    });
    if (node.action->Validate(collector) || collector.Reported()) return;
    At({{}, node.line, path, node.typeId, "", ""}).Add("The settings are not complete");
  }

  void CheckNeeded(const ActionNode& node, const std::string& path) {
    for (const NeededProperties& needed : kNeededProperties) {
      if (needed.typeId != node.typeId || !IsBlank(node, needed.first)) continue;
      if (!needed.other.empty() && !IsBlank(node, needed.other)) continue;
      At({{}, node.LineOf(needed.first), path, node.typeId, TitleOf(*node.action, needed.first), ""})
          .Add("Nothing has been set, so that there is nothing to do");
    }
  }

  static bool IsBlank(const ActionNode& node, std::string_view item) {
    TCustomVekAction& action = *node.action;
    const PropertyRow* row = action.FindProperty(item);
    if (row) return Trim(PropertyToText(*row, row->get(action))).empty();
    const IVekActionScript* script = action.GetScriptByName(item);
    return !script || script->IsBlank();
  }

  void CheckProperties(const ActionNode& node, const std::string& path) {
    ForEachText(*node.action, [&](const PropertyRow& row, const std::string& text) {
      if (text.empty() || IsLabel(row)) return;
      const Problem place{{}, node.LineOf(row.name), path, node.typeId, TitleOf(*node.action, row.name), ""};
      if (Trim(text).empty()) {
        if (IsWanted(row)) At(place).Add("The text is blank");
        return;
      }
      const Finding finding = At(place);
      ReferenceCheck check(context_, known_, finding);
      if (row.role == TextRole::Script) return check.CheckExpression(text);
      check.Check(text);
      if (row.role == TextRole::FileSet) CheckFileSetName(finding, text);
    });
  }

  /// Blanks there are a mistake, which actions let pass where they look for an empty text only.
  static bool IsWanted(const PropertyRow& row) {
    return row.type != PropertyType::StringList && (NamesPath(row.role) || row.role == TextRole::FileSet ||
                                                    row.role == TextRole::Variable || row.name == "Command");
  }

  /// What every action has and none expands.
  static bool IsLabel(const PropertyRow& row) { return row.name == "Name" || row.name == "Description"; }

  void CheckFileSetName(const Finding& finding, const std::string& name) {
    if (name.find_first_of("%$") != std::string::npos) return;
    std::vector<std::string_view> names;
    for (const FileSetDeclaration& fileSet : project_.fileSets) names.push_back(fileSet.name);
    const auto isIt = [&name](std::string_view known) { return SameText(known, name); };
    if (std::ranges::any_of(names, isIt)) return;
    finding.Add("the project has no file set " + Quoted(name) + Suggestion(name, names));
  }

  void CheckScripts(const ActionNode& node, const std::string& path) {
    for (const std::string& event : node.action->ScriptEvents()) {
      const IVekActionScript& script = *node.action->GetScriptByName(event);
      if (script.IsBlank()) continue;
      const Finding finding = At({{}, node.LineOf(event), path, node.typeId, "script " + event, ""});
      try {
        context_.CompileScript(script.Text());
        known_.CheckActions(script.Text(), finding);
      } catch (const EScriptError& error) {
        const std::string line = error.Line() > 0 ? "line " + std::to_string(error.Line()) + ": " : "";
        finding.Add(line + error.what());
      }
    }
  }

  /// The line of the property that goes by a title, which actions are free to word.
  static int LineOfTitle(const ActionNode& node, std::string_view title) {
    for (const ItemLine& item : node.lines) {
      if (SameText(item.name, title) || SameText(TitleOf(*node.action, item.name), title)) return item.line;
    }
    return node.line;
  }

  const Project& project_;
  const std::string& fileName_;
  BuildContext& context_;
  const std::span<const VariableDefinition> definitions_;
  KnownNames known_;
  std::vector<Problem> problems_;
};

}  // namespace

Problem ProblemOf(const EProjectFault& fault) {
  const FaultPlace& place = fault.Place();
  return {fault.File(), fault.Line(), place.path, place.type, place.item, fault.Reason()};
}

std::vector<Problem> CheckProject(const Project& project, const std::string& fileName, BuildContext& context,
                                  std::span<const VariableDefinition> definitions) {
  return Check(project, fileName, context, definitions).Run();
}
