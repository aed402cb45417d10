#include "cli/Manual.h"

#include <CLI/CLI.hpp>

#include "base/Text.h"

namespace {

constexpr std::string_view kStart = R"(.SH NAME
vekrun \- execute build projects
.SH SYNOPSIS
.B vekrun
.RI [ COMMAND ]
.RI [ OPTION ]...
.SH DESCRIPTION
.B vekrun
reads a project, a tree of actions in an XML file, executes it from top to bottom and reports. Its actions come
from packages;
.B vekrun actions
lists them, and
.B vekrun describe
shows the properties of one.
)";

constexpr std::string_view kEnd = R"(.SH ENVIRONMENT
.TP
.B NO_COLOR
The text log has no colours when this is set.
.TP
.B XDG_DATA_HOME
Where the folder
.I vekrun
with the option store lies; otherwise
.IR ~/.local/share .
.SH FILES
.TP
.I ~/.local/share/vekrun/options.json
The option store: settings of the machine.
.TP
.I ~/.local/share/vekrun/registry.reg
The registry that projects see.
)";

/// Text as it stands: a backslash or a line's first dot or quote would be taken for an instruction.
std::string Literal(std::string_view text) {
  std::string roff;
  for (const char c : text) {
    const bool first = roff.empty() || roff.back() == '\n';
    if (first && (c == '.' || c == '\'')) roff += "\\&";
    if (c == '\\') {
      roff += "\\e";
    } else if (c == '-') {
      roff += "\\-";
    } else {
      roff += c;
    }
  }
  return roff;
}

/// Lines that stay as they are.
std::string Display(std::string_view text) { return ".PP\n.nf\n" + Literal(Trim(text)) + "\n.fi\n"; }

std::string OptionEntry(const CLI::Option& option) {
  const bool takesValue = option.get_items_expected_min() > 0 && !option.get_type_name().empty();
  return ".TP\n\\fB" + Literal(option.get_name(false, true)) + "\\fR" +
         (takesValue ? " \\fI" + Literal(option.get_type_name()) + "\\fR" : "") + '\n' +
         Literal(option.get_description()) + '\n';
}

std::string CommandSection(const CLI::App& command) {
  std::string title = ".SS \"vekrun " + command.get_name(), options;
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_positional()) {
      title += ' ' + option->get_name() + (option->get_items_expected_max() > 1 ? "..." : "");
    }
    options += OptionEntry(*option);
  }
  return title + "\"\n" + Literal(command.get_description()) + ".\n" + options +
         Display(command.get_footer());
}

}  // namespace

std::string ManualPage(const CLI::App& app) {
  std::string page = ".TH VEKRUN 1 \"\" \"" + app.version() + "\" \"User Commands\"\n";
  page.append(kStart).append(".SH COMMANDS\n");
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    page += CommandSection(*command);
  }
  return page.append(".SH EXAMPLES AND EXIT STATUS\n").append(Display(app.get_footer())).append(kEnd);
}
