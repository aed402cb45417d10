#include "cli/Commands.h"

#include <CLI/CLI.hpp>

namespace {

constexpr auto kExamples = R"(
Examples:
  vekrun nightly.vekproj -D VERSION=1.4.2    (short for vekrun run ...)
  vekrun exec HDELETE_FILE "FileSpec=out\*.tmp" FailIfNoFile=False
  vekrun describe HDELETE_FILE

Exit codes: 0 success; 1 the build or action failed; 2 wrong usage, or a project that cannot be used (nothing
was executed); 130 stopped by the user.
Run "vekrun help COMMAND" for the options and examples of a command.)";

constexpr auto kRunExamples = R"(
Examples:
  vekrun run nightly.vekproj -D VERSION=1.4.2 -D "TITLE=Night build"
  vekrun run nightly.vekproj --vars ci.env
  vekrun run nightly.vekproj --only package --skip /2/3
  vekrun run nightly.vekproj --report junit=build.xml --report jsonl=build.jsonl
  vekrun run nightly.vekproj --validate -q)";

constexpr auto kExecExamples = R"(
Examples:
  vekrun exec HCREATEFILE NewFileName=out/version.txt "FileContents=%VERSION%" -D VERSION=1.4.2
  vekrun exec LISTITERATOR LoopVariable=NAME ListOfItems+=first ListOfItems+=second
  vekrun exec READTEXTFILE FileName=notes.txt --script OnReadLine=line.js)";

constexpr auto kValidateExamples = R"(
Examples:
  vekrun validate nightly.vekproj
  vekrun validate nightly.vekproj --json)";

constexpr auto kListExamples = R"(
Examples:
  vekrun list nightly.vekproj
  vekrun list nightly.vekproj --json)";

constexpr auto kActionsExamples = R"(
Examples:
  vekrun actions
  vekrun actions --json)";

constexpr auto kDescribeExamples = R"(
Examples:
  vekrun describe HDELETE_FILE
  vekrun describe HDELETE_FILE --json)";

constexpr auto kSchemaExamples = R"(
Examples:
  vekrun schema > vekproj.xsd
  xmllint --noout --schema vekproj.xsd nightly.vekproj
An editor that knows schemas finds it by a line below the first one of a project:
  <?xml-model href="vekproj.xsd"?>)";

constexpr auto kCompletionExamples = R"(
Examples:
  source <(vekrun completion bash)
  vekrun completion zsh > ~/.zfunc/_vekrun
  vekrun completion fish > ~/.config/fish/completions/vekrun.fish)";

constexpr auto kHelpExamples = R"(
Examples:
  vekrun help run
  vekrun help --man | man -l -)";

/// One value per use, however often it is used: what follows is never swallowed.
void AddRepeatable(CLI::App& app, const std::string& name, std::vector<std::string>& values,
                   const std::string& form, const std::string& help) {
  app.add_option(name, values, help)->type_name(form)->allow_extra_args(false);
}

void AddCommonOptions(CLI::App& app, Arguments& arguments, RawArguments& raw) {
  AddRepeatable(app, "--package", arguments.packages, "FILE",
                "Load this package; may be repeated (default: Vek40File beside vekrun)");
  AddRepeatable(app, "--option", raw.options, "NAME.KEY=VALUE",
                "Override an entry of the option store for this run");
}

void AddVariableOptions(CLI::App& app, Arguments& arguments, RawArguments& raw) {
  AddRepeatable(app, "-D", raw.variables, "NAME=VALUE",
                "Set a variable; takes the place of a declared value as it stands");
  AddRepeatable(app, "--vars", arguments.variableFiles, "FILE",
                "Set variables from lines NAME=VALUE; may be repeated, -D holds over it");
}

void AddBuildOptions(CLI::App& app, Arguments& arguments, RawArguments& raw) {
  AddVariableOptions(app, arguments, raw);
  app.add_option("--log-format", raw.logFormat, "text (for people), jsonl or junit")->type_name("FORMAT");
  app.add_option("--log", raw.logFile, "Write the log to a file instead of standard output")
      ->type_name("FILE");
  app.add_flag("--unattended", arguments.unattended,
               "Ask the user nothing (also when standard input is no terminal)");
  app.add_flag("--no-preserve-root", arguments.allowProtected,
               "Let steps remove roots, the home folder and folders of the system");
  AddRepeatable(app, "--drive", raw.drives, "X=DIR",
                "Linux: what drive X: stands for; may be repeated (Z: is /)");
  app.add_flag("-v,--verbose", arguments.verbose,
               "Log variable assignments, the programs started and times too");
  app.add_flag("-q,--quiet", arguments.quiet, "Log failures and the summary only");
  AddCommonOptions(app, arguments, raw);
}

CLI::App* AddCommand(CLI::App& app, Command command, const char* name, const char* help, const char* examples,
                     Arguments& arguments) {
  CLI::App* sub = app.add_subcommand(name, help);
  sub->footer(examples);
  sub->callback([&arguments, command] { arguments.command = command; });
  return sub;
}

void DeclareRun(CLI::App& app, Arguments& arguments, RawArguments& raw) {
  CLI::App* run = AddCommand(app, Command::Run, "run", "Execute a project", kRunExamples, arguments);
  run->add_option("PROJECT", arguments.subject, "Project file (.vekproj)")->required()->type_name("");
  AddRepeatable(*run, "--secret", arguments.secrets, "NAME",
                "Show the values of this variable in no log; may be repeated");
  AddRepeatable(*run, "--only", arguments.only, "STEP",
                "Run this step alone, by path (/2/1) or Name; may be repeated");
  AddRepeatable(*run, "--skip", arguments.skip, "STEP", "Leave this step out; may be repeated");
  AddRepeatable(*run, "--report", raw.reports, "FORMAT=FILE",
                "Write a report (text, jsonl or junit) beside the log; may be repeated");
  run->add_flag("--strict", arguments.strict,
                "A step that logged errors has failed, whatever its type makes of them");
  run->add_flag("-k,--keep-going", arguments.keepGoing,
                "Go on after a failed step; the build fails at its end");
  run->add_flag("--validate", arguments.validate, "Refuse a project whose actions are not set up completely");
  AddBuildOptions(*run, arguments, raw);
}

void DeclareExec(CLI::App& app, Arguments& arguments, RawArguments& raw) {
  CLI::App* exec = AddCommand(app, Command::Exec, "exec", "Execute one action without a project",
                              kExecExamples, arguments);
  exec->add_option("TYPEID", arguments.subject, "Type id of the action, such as HDELETE_FILE")
      ->required()
      ->type_name("");
  exec->add_option("PROPERTY", arguments.assignments, "PROP=VALUE, or PROP+=LINE for each line of a list")
      ->type_name("");
  AddRepeatable(*exec, "--script", arguments.scripts, "EVENT=FILE",
                "Attach a script to an event of the action; may be repeated");
  AddBuildOptions(*exec, arguments, raw);
}

}  // namespace

void DeclareCommands(CLI::App& app, Arguments& arguments, RawArguments& raw) {
  app.allow_windows_style_options(false);  // a path may begin with "/" on every system
  app.set_version_flag("--version", "vekrun " VEK_VERSION);
  app.require_subcommand(1);
  app.footer(kExamples);
  DeclareRun(app, arguments, raw);
  DeclareExec(app, arguments, raw);
  CLI::App* validate = AddCommand(app, Command::Validate, "validate", "Check a project without executing it",
                                  kValidateExamples, arguments);
  validate->add_option("PROJECT", arguments.subject, "Project file (.vekproj)")->required()->type_name("");
  AddVariableOptions(*validate, arguments, raw);
  CLI::App* list =
      AddCommand(app, Command::List, "list", "Show what a project is made of without executing it",
                 kListExamples, arguments);
  list->add_option("PROJECT", arguments.subject, "Project file (.vekproj)")->required()->type_name("");
  CLI::App* actions =
      AddCommand(app, Command::Actions, "actions", "List the action types", kActionsExamples, arguments);
  CLI::App* describe = AddCommand(app, Command::Describe, "describe",
                                  "Show an action type's properties and help", kDescribeExamples, arguments);
  describe->add_option("TYPEID", arguments.subject, "Type id of the action")->required()->type_name("");
  for (CLI::App* sub : {validate, list, actions, describe}) {
    sub->add_flag("--json", arguments.json, "Print JSON");
    AddCommonOptions(*sub, arguments, raw);
  }
  CLI::App* schema = AddCommand(app, Command::Schema, "schema", "Print an XML schema of project files",
                                kSchemaExamples, arguments);
  CLI::App* completion = AddCommand(app, Command::Completion, "completion",
                                    "Print a completion script for a shell", kCompletionExamples, arguments);
  completion->add_option("SHELL", arguments.subject, "bash, zsh or fish")->required()->type_name("");
  for (CLI::App* sub : {schema, completion}) AddCommonOptions(*sub, arguments, raw);
  CLI::App* help = AddCommand(app, Command::Manual, "help", "Show the options and examples of a command",
                              kHelpExamples, arguments);
  help->add_option("COMMAND", arguments.subject, "Command to show")->type_name("");
  help->add_flag_function(
      "--man", [](int64_t) {}, "Print the page of the manual");
}
