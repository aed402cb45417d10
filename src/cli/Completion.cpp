#include "cli/Completion.h"

#include <CLI/CLI.hpp>
#include <map>

#include "cli/CompletionScripts.h"
#include "coreapi/Vekactionapi.h"
#include "host/catalogue/Catalogue.h"

namespace {

StringList OptionNames(const CLI::Option& option) {
  StringList names;
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  return names;
}

/// Texts by place; of a name that several have, the first one's holds.
void AddCommands(const CLI::App& app, CompletionWords& words) {
  StringList commands, options;
  std::map<std::string, std::string> forms;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    commands.push_back(command->get_name());
    StringList names;
    for (const CLI::Option* option : command->get_options()) {
      for (const std::string& name : OptionNames(*option)) {
        names.push_back(name);
        if (option->get_items_expected_min() > 0) forms.emplace(name, option->get_type_name());
      }
    }
    words.emplace_back("options:" + command->get_name(), names);
  }
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : OptionNames(*option)) options.push_back(name);
  }
  words.emplace_back("commands", commands);
  words.emplace_back("options:", options);
  for (const auto& [name, form] : forms) words.emplace_back("takes:" + name, StringList{form});
}

StringList ValuesOf(const PropertyRow& row) {
  if (row.type == PropertyType::Boolean || row.type == PropertyType::WordBool) return {"True", "False"};
  if (row.type != PropertyType::Enumeration) return {};
  const auto values = row.enumType().values;
  return {values.begin(), values.end()};
}

void AddTypes(const Catalogue& catalogue, IVekActionHost& host, CompletionWords& words) {
  StringList types;
  std::map<std::string, StringList> values;
  for (const CatalogueEntry& entry : catalogue.Entries()) {
    types.push_back(entry.typeId);
    StringList properties;
    for (const PropertyRow* row : entry.actionClass->create(host)->PropertyRows()) {
      if (!row->published || !row->set) continue;
      const std::string name(row->name);
      properties.push_back(name + (row->type == PropertyType::StringList ? "+=" : "="));
      if (const StringList known = ValuesOf(*row); !known.empty()) values[name] = known;
    }
    words.emplace_back("properties:" + entry.typeId, properties);
  }
  words.emplace_back("types", types);
  for (const auto& [name, known] : values) words.emplace_back("values:" + name, known);
}

/// The function that prints the words of a place, one a line.
std::string PosixWords(const CompletionWords& words) {
  std::string text = "_vekrun_words() {\n  case $1 in\n";
  for (const auto& [place, list] : words) {
    text += "    '" + place + "') printf '%s\\n' " + JoinLines(list, " ") + " ;;\n";
  }
  return text + "  esac\n}\n";
}

std::string FishWords(const CompletionWords& words) {
  std::string text = "function __vekrun_words\n    switch $argv[1]\n";
  for (const auto& [place, list] : words) {
    text += "        case '" + place + "'\n            printf '%s\\n' " + JoinLines(list, " ") + '\n';
  }
  return text + "    end\nend\n";
}

}  // namespace

CompletionWords CollectCompletionWords(const CLI::App& app, const Catalogue& catalogue,
                                       IVekActionHost& host) {
  CompletionWords words;
  AddCommands(app, words);
  AddTypes(catalogue, host, words);
  return words;
}

std::string CompletionScript(std::string_view shell, const CompletionWords& words) {
  if (shell == "fish")
    return "# Completion of vekrun for fish.\n" + FishWords(words) + std::string(kFishCompletion);
  if (shell == "zsh") return "#compdef vekrun\n" + PosixWords(words) + std::string(kZshCompletion);
  return "# Completion of vekrun for bash.\n" + PosixWords(words) + std::string(kBashCompletion);
}
