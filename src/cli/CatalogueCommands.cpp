#include "cli/CatalogueCommands.h"

#include <iostream>

#include "cli/NoEvents.h"
#include "cli/Session.h"
#include "host/catalogue/Description.h"
#include "host/engine/BuildContext.h"
#include "host/project/ProjectSchema.h"

int ListActions(const Arguments& arguments) {
  const Session session(arguments, true);
  std::cout << (arguments.json ? ListActionsAsJson(session.GetCatalogue())
                               : ListActionsAsText(session.GetCatalogue()));
  return 0;
}

int DescribeAction(const Arguments& arguments) {
  const Session session(arguments, true);
  NoEvents events;
  BuildContext context(session.GetPlatform(), session.GetCatalogue(), events, true);
  const CatalogueEntry& entry = session.FindType(arguments.subject);
  std::cout << (arguments.json ? DescribeAsJson(session.GetCatalogue(), entry, context)
                               : DescribeAsText(session.GetCatalogue(), entry, context));
  return 0;
}

int PrintSchema(const Arguments& arguments) {
  const Session session(arguments, false);
  NoEvents events;
  BuildContext context(session.GetPlatform(), session.GetCatalogue(), events, true);
  std::cout << ProjectSchema(session.GetCatalogue(), context);
  return 0;
}
