#include "cli/BuildCommands.h"

#include <functional>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "cli/NoEvents.h"
#include "cli/Session.h"
#include "host/engine/BuildContext.h"
#include "host/engine/Engine.h"
#include "host/log/LogOutput.h"
#include "host/log/Logs.h"
#include "host/project/ProjectFile.h"
#include "host/project/ProjectListing.h"
#include "host/project/StepSelection.h"
#include "host/project/Validation.h"
#include "host/project/VariablesFile.h"
#include "platform/Console.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/ErrorTexts.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kFailed = 1;
constexpr int kUnusable = 2;

/// The log that the arguments ask for. Its file is opened late, so that a project which cannot be used does
/// not cost the log of an earlier build.
class BuildLog final : private OutputStream {
 public:
  BuildLog(Session& session, const Arguments& arguments)
      : session_(session), fileName_(arguments.logFile), output_(*this, [this] { onFailure_(); }) {
    events_ = Create(arguments, fileName_.empty() && session.GetConsole().OutputIsTerminal());
  }

  EventSink& Events() { return *events_; }
  void OnFailure(std::function<void()> handler) { onFailure_ = std::move(handler); }

  /// Raises EVekError when the log file cannot be written.
  void Open(const Project& project) {
    target_ = &session_.GetConsole().StandardOutput();
    if (!fileName_.empty()) OpenFile(project);
    if (!early_.empty()) output_.Write(std::exchange(early_, {}));
  }

  /// Says on standard error what kept the log from being written; false when nothing did.
  bool ReportFailure() const {
    if (!output_.Failed()) return false;
    std::cerr << "vekrun: cannot write the log" << (fileName_.empty() ? "" : " " + fileName_) << ": "
              << ErrorText(output_.FailureCode()) << '\n';
    return true;
  }

 private:
  SysResult Write(std::string_view bytes) override {
    if (target_) return target_->Write(bytes);
    early_ += bytes;
    return {};
  }

  void OpenFile(const Project& project) {
    if (!project.fileName.empty() && IsProject(project.fileName)) {
      throw EVekError("cannot write the log " + fileName_ + ": it is the project");
    }
    SysResult opened;
    file_ = session_.GetConsole().OpenFile(fileName_, opened);
    if (!file_) throw EVekError("cannot write the log " + fileName_ + ": " + ErrorText(opened.code));
    target_ = file_.get();
  }

  /// A link to the project and another name of it are the project, too.
  bool IsProject(const std::string& projectFile) const {
    const Platform& platform = session_.GetPlatform();
    const auto identity = platform.entries->Identity(fileName_);
    return platform.environment->FullPath(fileName_) == projectFile ||
           (identity && identity == platform.entries->Identity(projectFile));
  }

  std::unique_ptr<EventSink> Create(const Arguments& arguments, bool terminal) {
    switch (arguments.logFormat) {
      case LogFormat::Jsonl:
        return CreateJsonLog(output_);
      case LogFormat::Junit:
        return CreateJunitLog(output_);
      case LogFormat::Text:
        break;
    }
    TextLogStyle style;
    if (arguments.quiet) style.verbosity = Verbosity::Quiet;
    if (arguments.verbose) style.verbosity = Verbosity::Verbose;
    style.liveProgress = terminal;
    style.colours = terminal && !session_.GetPlatform().environment->Variable("NO_COLOR");
    style.width = terminal ? session_.GetConsole().OutputWidth() : style.width;
    return CreateTextLog(output_, style);
  }

  std::string ErrorText(Win32Error code) const { return session_.GetPlatform().errorTexts->Text(code); }

  Session& session_;
  std::string fileName_;
  std::unique_ptr<OutputStream> file_;
  OutputStream* target_ = nullptr;
  std::string early_;  // what the scripts of declared variables log, before there is a target
  std::function<void()> onFailure_ = [] {};
  LogOutput output_;
  std::unique_ptr<EventSink> events_;
};

bool IsUnattended(Session& session, const Arguments& arguments) {
  return arguments.unattended || !session.GetConsole().InputIsTerminal();
}

/// The variables that the command line gives; -D holds over what a file says.
std::vector<VariableDefinition> Definitions(const Session& session, const Arguments& arguments) {
  std::vector<VariableDefinition> definitions;
  for (const std::string& file : arguments.variableFiles) {
    const auto read = ReadVariablesFile(ReadTextOf(session.GetPlatform(), file), file);
    definitions.insert(definitions.end(), read.begin(), read.end());
  }
  definitions.insert(definitions.end(), arguments.variables.begin(), arguments.variables.end());
  return definitions;
}

void PrintNearMisses(const Project& project, const std::vector<VariableDefinition>& definitions) {
  for (const std::string& line : NearMisses(project, definitions)) std::cerr << "vekrun: " << line << '\n';
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

void PrintProblems(const std::vector<ValidationProblem>& problems, const std::string& file,
                   std::ostream& stream) {
  for (const ValidationProblem& problem : problems) {
    stream << file << ": " << problem.path << ' ' << problem.type << ": " << problem.title
           << (problem.title.empty() ? "" : ": ") << problem.message << '\n';
  }
}

void PrintProblemsAsJson(const std::vector<ValidationProblem>& problems) {
  auto array = nlohmann::ordered_json::array();
  for (const ValidationProblem& problem : problems) {
    array.push_back({{"path", problem.path},
                     {"type", problem.type},
                     {"title", problem.title},
                     {"message", problem.message}});
  }
  std::cout << array.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

/// Executes what `load` makes for the build and answers the exit code.
template <class Load>
int Build(const Arguments& arguments, const Load& load) {
  Session session(arguments, false);
  BuildLog log(session, arguments);
  BuildContext context(session.GetPlatform(), session.GetCatalogue(), log.Events(),
                       IsUnattended(session, arguments));
  if (arguments.allowProtected) context.AllowProtected();
  log.OnFailure([&context] { context.Stop().RequestStop(); });

  const std::vector<VariableDefinition> definitions = Definitions(session, arguments);
  Project project = load(session, context);
  PrintNearMisses(project, definitions);
  ChooseSteps(project, arguments.only, arguments.skip);
  if (arguments.validate) {
    const auto problems = ValidateActions(project.actions);
    PrintProblems(problems, arguments.subject, std::cerr);
    if (!problems.empty()) return kUnusable;
  }
  const auto interrupt = session.GetConsole().OnInterrupt([&context] { context.Stop().RequestStop(); });
  for (const std::string& name : arguments.secrets) context.MarkVariableSecret(name);
  try {
    DefineVariables(context, project, definitions);
  } catch (const EProjectError& error) {
    if (context.Stop().StopRequested()) return kStoppedByUser;
    throw EProjectError(context.Masked(error.what()));
  }

  log.Open(project);
  session.Dialogs().SetBuild(&context);
  const BuildSummary summary =
      Engine(context, {arguments.strict, arguments.keepGoing}).Run(project, arguments.subject);
  session.Dialogs().SetBuild(nullptr);
  if (log.ReportFailure()) return kFailed;
  if (summary.result == ActionResult::Stopped) return kStoppedByUser;
  return summary.result == ActionResult::Success ? kSuccess : kFailed;
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

int ValidateProject(const Arguments& arguments) {
  Session session(arguments, false);
  NoEvents events;
  BuildContext context(session.GetPlatform(), session.GetCatalogue(), events, true);
  const Project project =
      LoadProject(session.GetPlatform(), arguments.subject, session.GetCatalogue(), context);
  const auto problems = ValidateActions(project.actions);
  if (arguments.json) {
    PrintProblemsAsJson(problems);
  } else {
    PrintProblems(problems, arguments.subject, std::cout);
  }
  return problems.empty() ? kSuccess : kFailed;
}

int ListProject(const Arguments& arguments) {
  Session session(arguments, false);
  NoEvents events;
  BuildContext context(session.GetPlatform(), session.GetCatalogue(), events, true);
  const Project project =
      LoadProject(session.GetPlatform(), arguments.subject, session.GetCatalogue(), context);
  std::cout << (arguments.json ? ListProjectAsJson(project) : ListProjectAsText(project));
  return kSuccess;
}
