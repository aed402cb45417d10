#include "cli/CommandWords.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <vector>

#include "base/NearestName.h"
#include "cli/Arguments.h"

namespace {

std::vector<const CLI::App*> Commands(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App*) { return true; });
}

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
  for (const CLI::App* command : Commands(app)) {
    if (command->get_name() == name) return command;
  }
  return nullptr;
}

const CLI::App& CommandNamed(const CLI::App& app, const std::string& name) {
  if (const CLI::App* command = FindCommand(app, name)) return *command;
  std::vector<std::string_view> names;
  for (const CLI::App* command : Commands(app)) names.push_back(command->get_name());
  throw UsageError{"unknown command \"" + name + '"' + DidYouMean(name, names) +
                   " (vekrun --help shows the usage)"};
}

/// How many words an option takes up: one, or two when its value is the next word.
size_t WordsOf(const std::string& word, const std::vector<const CLI::App*>& commands) {
  const bool holdsValue = word.starts_with("--") ? word.find('=') != std::string::npos : word.size() > 2;
  if (holdsValue) return 1;
  for (const CLI::App* command : commands) {
    const CLI::Option* option = command->get_option_no_throw(word);
    if (option) return option->get_items_expected_min() > 0 ? 2 : 1;
  }
  return 1;
}

bool IsOption(const std::string& word) { return word.size() > 1 && word[0] == '-'; }

/// Raises UsageError for a long option that none of the commands has.
void CheckOption(const std::string& word, const std::vector<const CLI::App*>& commands) {
  const std::string name = word.substr(0, word.find('='));
  if (!name.starts_with("--")) return;
  std::vector<std::string> known;
  for (const CLI::App* command : commands) {
    if (command->get_option_no_throw(name)) return;
    for (const CLI::Option* option : command->get_options()) {
      for (const std::string& longName : option->get_lnames()) known.push_back("--" + longName);
    }
  }
  const std::string where = commands.size() == 1 ? " of " + commands[0]->get_name() : "";
  throw UsageError{"unknown option \"" + name + '"' + where +
                   DidYouMean(name, std::vector<std::string_view>(known.begin(), known.end())) +
                   " (vekrun --help shows the usage)"};
}

/// The first word that is neither an option nor an option's value; the number of words for none.
size_t FirstPlainWord(const StringList& words, const CLI::App& app) {
  std::vector<const CLI::App*> commands = Commands(app);
  commands.push_back(&app);
  size_t place = 0;
  for (; place < words.size() && IsOption(words[place]); place += WordsOf(words[place], commands)) {
    CheckOption(words[place], commands);
  }
  return std::min(place, words.size());
}

void CheckOptions(const StringList& words, const CLI::App& command) {
  for (size_t i = 1; i < words.size() && words[i] != "--"; i += WordsOf(words[i], {&command})) {
    CheckOption(words[i], {&command});
  }
}

bool IsProjectName(const std::string& word) { return UpCase(word).ends_with(".VEKPROJ"); }

}  // namespace

StringList CommandFirst(StringList words, const CLI::App& app) {
  const size_t place = FirstPlainWord(words, app);
  if (place == words.size()) return words;
  const std::string word = words[place];
  if (word == "help" && std::ranges::find(words, "--man") == words.end()) {
    if (place + 1 == words.size()) return {"--help"};
    return {CommandNamed(app, words[place + 1]).get_name(), "--help"};
  }
  if (!FindCommand(app, word) && IsProjectName(word)) {
    words.insert(words.begin(), "run");
  } else {
    const auto command = words.begin() + static_cast<std::ptrdiff_t>(place);
    std::rotate(words.begin(), command, command + 1);
  }
  CheckOptions(words, CommandNamed(app, words[0]));
  return words;
}
