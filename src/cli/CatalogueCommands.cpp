#include "cli/CatalogueCommands.h"

#include <algorithm>
#include <iostream>

#include "cli/Completion.h"
#include "cli/Manual.h"
#include "cli/NoEvents.h"
#include "cli/Session.h"
#include "host/catalogue/Description.h"
#include "host/engine/BuildContext.h"
#include "host/project/ProjectSchema.h"
#include "platform/Console.h"

int ListActions(const Arguments& arguments) {
  const Session session(arguments, true);
  std::cout << (arguments.json ? ListActionsAsJson(session.GetCatalogue())
                               : ListActionsAsText(session.GetCatalogue()));
  return 0;
}

int DescribeAction(const Arguments& arguments) {
  Session session(arguments, true);
  Console& console = session.GetConsole();
  const size_t width =
      console.OutputIsTerminal() ? static_cast<size_t>(std::max(console.OutputWidth(), 0)) : 0;
  NoEvents events;
  BuildContext context(session.GetPlatform(), session.GetCatalogue(), events, true);
  const CatalogueEntry& entry = session.FindType(arguments.subject);
  std::cout << (arguments.json ? DescribeAsJson(session.GetCatalogue(), entry, context)
                               : DescribeAsText(session.GetCatalogue(), entry, context, width));
  return 0;
}

int PrintSchema(const Arguments& arguments) {
  const Session session(arguments, false);
  NoEvents events;
  BuildContext context(session.GetPlatform(), session.GetCatalogue(), events, true);
  std::cout << ProjectSchema(session.GetCatalogue(), context);
  return 0;
}

int PrintCompletion(const Arguments& arguments) {
  if (std::ranges::find(kShells, arguments.subject) == std::end(kShells)) {
    throw UsageError{"completion: the shell must be bash, zsh or fish, not \"" + arguments.subject + '"'};
  }
  const Session session(arguments, false);
  NoEvents events;
  BuildContext context(session.GetPlatform(), session.GetCatalogue(), events, true);
  ShowCommands([&](const CLI::App& app) {
    std::cout << CompletionScript(arguments.subject,
                                  CollectCompletionWords(app, session.GetCatalogue(), context));
  });
  return 0;
}

int PrintManual() {
  ShowCommands([](const CLI::App& app) { std::cout << ManualPage(app); });
  return 0;
}
