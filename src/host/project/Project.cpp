#include "host/project/Project.h"

TCustomVekAction* FindActionByName(const std::vector<ActionNode>& actions, std::string_view name) {
  for (const ActionNode& node : actions) {
    if (!node.action->Name.empty() && SameText(node.action->Name, name)) return node.action.get();
    if (TCustomVekAction* found = FindActionByName(node.children, name)) return found;
  }
  return nullptr;
}
