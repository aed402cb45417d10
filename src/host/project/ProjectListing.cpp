#include "host/project/ProjectListing.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/project/Project.h"
#include "host/project/Quoted.h"
#include "host/secrets/Secrets.h"

namespace {

using Json = nlohmann::ordered_json;

struct Step {
  std::string path;
  const ActionNode& node;
  bool disabled;  // itself, or what it stands in
};

void Collect(const std::vector<ActionNode>& actions, const std::string& parentPath, bool disabled,
             std::vector<Step>& steps) {
  for (size_t i = 0; i < actions.size(); ++i) {
    const ActionNode& node = actions[i];
    steps.push_back({parentPath + '/' + std::to_string(i + 1), node, disabled || !node.action->Enabled});
    const Step step = steps.back();
    Collect(node.children, step.path, step.disabled, steps);
  }
}

std::vector<Step> StepsOf(const Project& project) {
  std::vector<Step> steps;
  Collect(project.actions, "", false, steps);
  return steps;
}

std::string ShownValue(const VariableDeclaration& variable) {
  return variable.secret ? std::string(kSecretText) : variable.text;
}

size_t WidthOf(const std::string& text) { return CharacterCount(text); }

/// Rows of cells as columns; the last one is as wide as it likes.
std::string Columns(const std::vector<StringList>& rows) {
  std::vector<size_t> widths;
  for (const StringList& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], WidthOf(row[i]));
  }
  std::string text;
  for (const StringList& row : rows) {
    std::string line = "  ";
    for (size_t i = 0; i < row.size(); ++i) {
      line += row[i] + std::string(widths[i] - WidthOf(row[i]) + 2, ' ');
    }
    text.append(line, 0, line.find_last_not_of(' ') + 1).append(1, '\n');
  }
  return text;
}

std::string Marks(std::initializer_list<std::pair<bool, std::string_view>> marks) {
  std::string text;
  for (const auto& [isSet, mark] : marks) {
    if (isSet) text.append(text.empty() ? "" : ", ").append(mark);
  }
  return text.empty() ? text : " (" + text + ")";
}

std::vector<StringList> VariableRows(const Project& project) {
  std::vector<StringList> rows;
  for (const VariableDeclaration& variable : project.variables) {
    const std::string marks = Marks(
        {{variable.required, "required"}, {variable.exported, "exported"}, {variable.secret, "secret"}});
    rows.push_back({variable.name, variable.type, OneLine(ShownValue(variable)) + marks});
  }
  return rows;
}

std::vector<StringList> FileSetRows(const Project& project) {
  std::vector<StringList> rows;
  for (const FileSetDeclaration& fileSet : project.fileSets) {
    std::string patterns;
    for (const std::string& pattern : fileSet.includes) patterns += " +" + pattern;
    for (const std::string& pattern : fileSet.excludes) patterns += " -" + pattern;
    rows.push_back({OneLine(fileSet.name), OneLine(fileSet.baseDirectory), OneLine(Trim(patterns))});
  }
  return rows;
}

std::vector<StringList> StepRows(const Project& project) {
  std::vector<StringList> rows;
  for (const Step& step : StepsOf(project)) {
    const TCustomVekAction& action = *step.node.action;
    rows.push_back({step.path, step.node.typeId, OneLine(action.Name),
                    OneLine(action.GetDescription()) + Marks({{step.disabled, "disabled"}})});
  }
  return rows;
}

}  // namespace

std::string ListProjectAsText(const Project& project) {
  std::string text;
  const auto add = [&text](std::string_view title, const std::vector<StringList>& rows) {
    if (rows.empty()) return;
    text.append(text.empty() ? "" : "\n").append(title).append(":\n").append(Columns(rows));
  };
  add("Variables", VariableRows(project));
  add("File sets", FileSetRows(project));
  add("Steps", StepRows(project));
  return text;
}

std::string ListProjectAsJson(const Project& project) {
  Json variables = Json::array(), fileSets = Json::array(), actions = Json::array();
  for (const VariableDeclaration& variable : project.variables) {
    variables.push_back({{"name", variable.name},
                         {"type", variable.type},
                         {"value", ShownValue(variable)},
                         {"required", variable.required},
                         {"export", variable.exported},
                         {"secret", variable.secret},
                         {"line", variable.line}});
  }
  for (const FileSetDeclaration& fileSet : project.fileSets) {
    fileSets.push_back({{"name", fileSet.name},
                        {"baseDirectory", fileSet.baseDirectory},
                        {"includes", fileSet.includes},
                        {"excludes", fileSet.excludes},
                        {"line", fileSet.line}});
  }
  for (const Step& step : StepsOf(project)) {
    actions.push_back({{"path", step.path},
                       {"type", step.node.typeId},
                       {"name", step.node.action->Name},
                       {"title", step.node.action->GetDescription()},
                       {"disabled", step.disabled},
                       {"line", step.node.line}});
  }
  const Json listing = {{"project", project.fileName},
                        {"variables", std::move(variables)},
                        {"fileSets", std::move(fileSets)},
                        {"actions", std::move(actions)}};
  return listing.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}
