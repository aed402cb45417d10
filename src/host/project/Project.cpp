#include "host/project/Project.h"

TCustomVekAction* FindActionByName(const std::vector<ActionNode>& actions, std::string_view name) {
  for (const ActionNode& node : actions) {
    if (!node.action->Name.empty() && SameText(node.action->Name, name)) return node.action.get();
    if (TCustomVekAction* found = FindActionByName(node.children, name)) return found;
  }
  return nullptr;
}

int ActionNode::LineOf(std::string_view item) const {
  for (const ItemLine& known : lines) {
    if (SameText(known.name, item)) return known.line;
  }
  return line;
}

std::string FaultPlace::Text() const {
  if (path.empty()) return item;
  std::string text = "action " + path;
  if (!type.empty()) text += ' ' + type;
  return item.empty() ? text : text + ": " + item;
}

EProjectFault::EProjectFault(const std::string& file, int line, FaultPlace place, std::string reason)
    : EProjectError(file + ':' + std::to_string(line) + ": " +
                    (place.Text().empty() ? "" : place.Text() + ": ") + reason),
      file_(file),
      line_(line),
      place_(std::move(place)),
      reason_(std::move(reason)) {}
