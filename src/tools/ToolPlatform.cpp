#include "tools/ToolPlatform.h"

#include "base/Text.h"
#include "platform/CopyToolVariables.h"
#include "platform/Environment.h"

std::unique_ptr<PlatformOwner> CreateToolPlatform() {
  const auto lines = std::make_shared<StringList>();
  auto owner = CreatePlatform([lines](char letter) -> std::optional<std::string> {
    for (const std::string& line : *lines) {
      if (line.size() > 2 && line[0] == letter && line[1] == '=') return line.substr(2);
    }
    return {};
  });
  *lines = SplitLines(owner->Get().environment->Variable(kDrivesVariable).value_or(""));
  return owner;
}
