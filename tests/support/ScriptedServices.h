#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "coreapi/Vekoptions.h"
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
  int32_t pressed = 0;                // the button of every message box
  StringList typed;                   // what is typed where a text is prompted for, in turn; then a cancel
  StringList asked;                   // title, text, filter, default extension of the last chooser
  StringList shown;                   // messages
  std::map<std::pair<std::string, std::string>, std::string> options;
  std::function<void(TFrame& form)> fillIn;          // nothing: the user cancels dialogs
  StringList variables;                              // what the designer knows
  Catalogue catalogue;                               // what was registered
  std::unique_ptr<TVekOptionsObject> optionsObject;  // answered for every category and name

  /// From now on this is a host without a designer.
  void RemoveDesigner() { services_.design = nullptr; }

 private:
  bool BrowseForFile(std::string_view title, std::string& fileName, std::string_view filter,
                     std::string_view defaultExtension, TMustExist) override {
    asked = {std::string(title), fileName, std::string(filter), std::string(defaultExtension)};
    return Answer(fileName);
  }
  bool BrowseForDirectory(std::string_view title, std::string& folder, TMustExist) override {
    asked = {std::string(title), folder};
    return Answer(folder);
  }
  int32_t MessageDialog(std::string_view text, std::string_view caption, uint32_t style) override {
    asked = {std::string(text), std::string(caption), std::to_string(style)};
    return pressed;
  }
  bool PromptForText(const TTextPrompt& prompt, std::string& text) override {
    asked.push_back(std::string(prompt.title) + '|' + std::string(prompt.text) + '|' + text);
    for (; !typed.empty(); typed.erase(typed.begin())) {
      const std::string complaint = prompt.complaint(typed.front());
      if (!complaint.empty()) asked.push_back(complaint);
      if (!complaint.empty()) continue;
      text = typed.front();
      typed.erase(typed.begin());
      return true;
    }
    return false;
  }
  bool ChooseFromList(std::string_view text, const StringList& choices, int32_t& number) override {
    asked = {std::string(text), JoinLines(choices, "|"), std::to_string(number)};
    if (answer) number = std::stoi(*answer);
    return answer.has_value();
  }
  void ShowMessage(std::string_view text) override { shown.emplace_back(text); }
  bool Answer(std::string& text) const {
    if (answer) text = *answer;
    return answer.has_value();
  }

  TVekOptionsObject* FindOptions(std::string_view, std::string_view) override { return optionsObject.get(); }
  std::string ReadOption(std::string_view name, std::string_view key) override {
    const auto option = options.find({std::string(name), std::string(key)});
    return option == options.end() ? "" : option->second;
  }

  void RegisterOptionsPage(const OptionsClass&, std::string_view) override {}

  void GetVariableNames(StringList& names) override {
    names.insert(names.end(), variables.begin(), variables.end());
  }

  bool ShowForm(TFrame& form) override { return fillIn && (fillIn(form), true); }

  VekHostServices services_{catalogue, catalogue, *this, *this, this};
};
