#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Text.h"

namespace CLI {
class App;
}
class Catalogue;
class IVekActionHost;

inline constexpr std::string_view kShells[] = {"bash", "zsh", "fish"};

/// What can be completed, by place: "commands", "options:run", "takes:--log" (the form of its value),
/// "types", "properties:HDELETE_FILE", "values:Recurse".
using CompletionWords = std::vector<std::pair<std::string, StringList>>;

CompletionWords CollectCompletionWords(const CLI::App& app, const Catalogue& catalogue, IVekActionHost& host);

/// The completion script of one of kShells.
std::string CompletionScript(std::string_view shell, const CompletionWords& words);
