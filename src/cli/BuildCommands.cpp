#include "cli/BuildCommands.h"

#include <functional>
#include <iostream>
#include <memory>
#include <utility>

#include "cli/BuildLogs.h"
#include "cli/GivenVariables.h"
#include "cli/Problems.h"
#include "cli/Session.h"
#include "host/engine/BuildContext.h"
#include "host/engine/Engine.h"
#include "host/log/DisplayText.h"
#include "host/project/ProjectFile.h"
#include "host/project/StepSelection.h"
#include "host/validation/ProjectCheck.h"
#include "platform/Console.h"
#include "platform/CreatePlatform.h"
#include "platform/Environment.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kFailed = 1;
constexpr int kUnusable = 2;

bool IsUnattended(Session& session, const Arguments& arguments) {
  return arguments.unattended || !session.GetConsole().InputIsTerminal();
}

/// A project of one action, set up from PROP=VALUE and EVENT=FILE.
Project MakeProject(const Session& session, const Arguments& arguments, IVekActionHost& host) {
  const CatalogueEntry& entry = session.FindType(arguments.subject);
  Project project;
  ActionNode& node = project.actions.emplace_back();
  node.typeId = entry.typeId;
  node.action = entry.actionClass->create(host);
  for (const std::string& text : arguments.assignments) {
    auto [name, value] = SplitAssignment(text, "property", "PROP=VALUE");
    if (name.ends_with('+')) {
      name.pop_back();
      AppendToListProperty(*node.action, name, value);
    } else {
      AssignProperty(*node.action, name, value);
    }
  }
  for (const std::string& text : arguments.scripts) {
    const auto [event, file] = SplitAssignment(text, "--script", "EVENT=FILE");
    AttachScript(*node.action, event, ReadTextOf(session.GetPlatform(), file));
  }
  return project;
}

/// A step may take its time to end, and whoever pressed Ctrl-C should know what is waited for.
void SayStopping(Console& console, const std::string& step) {
  const std::string start = console.OutputIsTerminal() ? "\n" : "";
  const std::string what = step.empty() ? "" : ", waiting for " + DisplayLine(step);
  console.StandardError().Write(start + "vekrun: stopping" + what + " (Ctrl-C again ends it at once)\n");
}

int ExitCode(BuildLogs& logs, const BuildSummary& summary) {
  if (logs.ReportFailures()) return kFailed;
  if (summary.result == ActionResult::Stopped) return kStoppedByUser;
  return summary.result == ActionResult::Success ? kSuccess : kFailed;
}

/// For a build thread that is lost in a script.
[[noreturn]] void EndWithoutScript(BuildLogs& logs, bool isOpen, Engine& engine) {
  if (isOpen) EndProgram(ExitCode(logs, engine.Abandon()));
  std::cerr << "vekrun: stopped in a script of the project's variables\n";
  EndProgram(kStoppedByUser);
}

/// Executes what `load` makes for the build and answers the exit code.
template <class Load>
int Build(const Arguments& arguments, const Load& load) {
  Session session(arguments, false);
  BuildLogs logs(session, arguments);
  BuildContext context(session.GetPlatform(), session.GetCatalogue(), logs.Events(),
                       IsUnattended(session, arguments));
  if (arguments.allowProtected) context.AllowProtected();
  logs.OnFailure([&context] { context.Stop().RequestStop(); });

  const std::vector<VariableDefinition> definitions = GivenVariables(session, arguments);
  Project project = load(session, context);
  PrintNearMisses(project, definitions);
  ChooseSteps(project, arguments.only, arguments.skip);
  if (arguments.validate) {
    const auto problems = CheckProject(project, arguments.subject, context, definitions);
    PrintProblems(problems, std::cerr);
    if (!problems.empty()) return kUnusable;
  }
  Engine engine(context, {arguments.strict, arguments.keepGoing});
  bool logsAreOpen = false;
  context.Stop().OnUnstoppable([&] { EndWithoutScript(logs, logsAreOpen, engine); });
  const auto interrupt = session.GetConsole().OnInterrupt([&session, &context] {
    SayStopping(session.GetConsole(), context.Stop().RunningStep());
    context.Stop().RequestStop();
  });
  for (const std::string& name : arguments.secrets) context.MarkVariableSecret(name);
  try {
    DefineVariables(context, project, definitions);
  } catch (const EProjectError& error) {
    if (context.Stop().StopRequested()) return kStoppedByUser;
    throw EProjectError(context.Masked(error.what()));
  }

  logs.Open(project);
  logsAreOpen = true;
  session.Dialogs().SetBuild(&context);
  const BuildSummary summary = engine.Run(project, arguments.subject);
  session.Dialogs().SetBuild(nullptr);
  return ExitCode(logs, summary);
}

}  // namespace

int RunProject(const Arguments& arguments) {
  return Build(arguments, [&arguments](const Session& session, IVekActionHost& host) {
    return LoadProject(session.GetPlatform(), arguments.subject, session.GetCatalogue(), host);
  });
}

int ExecAction(const Arguments& arguments) {
  return Build(arguments, [&arguments](const Session& session, IVekActionHost& host) {
    return MakeProject(session, arguments, host);
  });
}
