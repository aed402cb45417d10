#include "host/validation/NestedProjectCheck.h"

#include "host/project/Project.h"
#include "host/project/Quoted.h"
#include "host/validation/Texts.h"
#include "platform/Entries.h"
#include "platform/Platform.h"

void CheckNestedProject(const ActionNode& node, const Platform& platform,
                        const std::function<void(std::string_view property, std::string message)>& report) {
  if (node.typeId != "RUNPROJECT") return;
  ForEachText(*node.action, [&](const PropertyRow& row, const std::string& text) {
    if (Trim(text).empty()) return;
    const bool isFixed = text.find_first_of("%$") == std::string::npos;
    if (row.name == "ProjectFile" && isFixed && !platform.entries->FileExists(text)) {
      report(row.name, "there is no file " + Quoted(text));
    }
    const size_t equals = text.find('=');
    const bool isPair =
        equals != std::string::npos && !Trim(std::string_view(text).substr(0, equals)).empty();
    if (row.name == "Variables" && !isPair) report(row.name, Quoted(text) + " is not of the form NAME=VALUE");
  });
}
