#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "coreapi/Vekservices.h"
#include "host/catalogue/Catalogue.h"

/// A user who answers every chooser the same way, an option store and a catalogue; installed as the process's
/// host services while it lives.
class ScriptedServices final : IVekOptionsServices, IVekDialogServices, IVekDesignApplicationServices {
 public:
  ScriptedServices() { InstallVekServices(&services_); }
  ~ScriptedServices() { InstallVekServices(nullptr); }
  ScriptedServices(const ScriptedServices&) = delete;
  ScriptedServices& operator=(const ScriptedServices&) = delete;

  std::optional<std::string> answer;  // nothing: the user cancels
  StringList asked;                   // title, text, filter, default extension of the last chooser
  std::map<std::pair<std::string, std::string>, std::string> options;
  StringList variables;  // what the designer knows
  Catalogue catalogue;   // what was registered

  /// From now on this is a host without a designer.
  void RemoveDesigner() { services_.design = nullptr; }

 private:
  bool BrowseForFile(std::string_view title, std::string& fileName, std::string_view filter,
                     std::string_view defaultExtension) override {
    asked = {std::string(title), fileName, std::string(filter), std::string(defaultExtension)};
    return Answer(fileName);
  }
  bool BrowseForDirectory(std::string_view title, std::string& folder) override {
    asked = {std::string(title), folder};
    return Answer(folder);
  }
  bool Answer(std::string& text) const {
    if (answer) text = *answer;
    return answer.has_value();
  }

  std::string ReadOption(std::string_view name, std::string_view key) override {
    const auto option = options.find({std::string(name), std::string(key)});
    return option == options.end() ? "" : option->second;
  }

  void RegisterOptionsPage(const OptionsClass&, std::string_view) override {}

  void GetVariableNames(StringList& names) override {
    names.insert(names.end(), variables.begin(), variables.end());
  }

  VekHostServices services_{catalogue, catalogue, *this, *this, this};
};
