#include "cli/ProjectCommands.h"

#include <algorithm>
#include <iostream>

#include "cli/GivenVariables.h"
#include "cli/NoEvents.h"
#include "cli/Problems.h"
#include "cli/Session.h"
#include "host/engine/BuildContext.h"
#include "host/project/ProjectFile.h"
#include "host/project/ProjectListing.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kProblems = 1;
constexpr int kUnusable = 2;

/// A project that is looked at, in a build that does not begin.
struct Lookout {
  explicit Lookout(const Arguments& arguments)
      : session(arguments, false), context(session.GetPlatform(), session.GetCatalogue(), events, true) {}

  Project Load(const std::string& path, std::vector<EProjectFault>* faults) {
    return LoadProject(session.GetPlatform(), path, session.GetCatalogue(), context, faults);
  }

  Session session;
  NoEvents events;
  BuildContext context;
};

/// A file that cannot be read is a problem like others for whoever reads them as JSON.
Problem ProblemOf(const EVekError& error, const std::string& fileName) {
  std::string_view message = error.what();
  const std::string place = fileName + ": ";
  if (message.starts_with(place)) message.remove_prefix(place.size());
  return {fileName, 0, "", "", "", std::string(message)};
}

}  // namespace

int ValidateProject(const Arguments& arguments) {
  Lookout lookout(arguments);
  const auto definitions = GivenVariables(lookout.session, arguments);
  std::vector<EProjectFault> faults;
  std::vector<Problem> problems;
  Project project;
  try {
    project = lookout.Load(arguments.subject, &faults);
  } catch (const EVekError& error) {
    if (!arguments.json) throw;
    PrintProblemsAsJson({ProblemOf(error, arguments.subject)}, std::cout);
    return kUnusable;
  }
  if (faults.empty()) {
    PrintNearMisses(project, definitions);
    problems = CheckProject(project, arguments.subject, lookout.context, definitions);
  } else {
    std::ranges::transform(faults, std::back_inserter(problems),
                           [](const EProjectFault& fault) { return ProblemOf(fault); });
  }
  if (arguments.json) {
    PrintProblemsAsJson(problems, std::cout);
  } else {
    PrintProblems(problems, std::cout);
  }
  if (!faults.empty()) return kUnusable;
  return problems.empty() ? kSuccess : kProblems;
}

int ListProject(const Arguments& arguments) {
  Lookout lookout(arguments);
  const Project project = lookout.Load(arguments.subject, nullptr);
  std::cout << (arguments.json ? ListProjectAsJson(project) : ListProjectAsText(project));
  return kSuccess;
}
