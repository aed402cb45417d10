#pragma once

#include "base/Text.h"

namespace CLI {
class App;
}

/// Brings the words of a command line into the order that the parser knows: the command first, wherever it
/// stands among the options; a project file without a command is run, and "help COMMAND" asks for that
/// command's help. Raises UsageError, which names the nearest one, for an unknown command or long option.
StringList CommandFirst(StringList words, const CLI::App& app);
