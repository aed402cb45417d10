#pragma once

#include "coreapi/Vekservices.h"
#include "host/services/ConsolePrompt.h"

class BuildContext;

/// Dialogs at a terminal: the text, what there is to choose from with the default marked, and one line of
/// answer. An empty line takes the default, what does not fit is asked for again, the end of input cancels.
/// Outside a build, and in an unattended one, nothing is shown and the dialog counts as cancelled; in a build
/// that is a breach of contract and is reported.
class ConsoleDialogs final : public IVekDialogServices {
 public:
  explicit ConsoleDialogs(Console& console) : console_(console), prompt_(console) {}

  /// The build that dialogs belong to; null for none.
  void SetBuild(BuildContext* build);

  bool BrowseForFile(std::string_view title, std::string& fileName, std::string_view filter,
                     std::string_view defaultExtension, TMustExist mustExist) override;
  bool BrowseForDirectory(std::string_view title, std::string& folder, TMustExist mustExist) override;
  int32_t MessageDialog(std::string_view text, std::string_view caption, uint32_t style) override;
  bool PromptForText(const TTextPrompt& prompt, std::string& answer) override;
  bool ChooseFromList(std::string_view text, const StringList& choices, int32_t& number) override;

  /// A line on standard error, or in a build an error of the step that runs.
  void ShowMessage(std::string_view text) override;

 private:
  bool MayShow();
  bool AskForPath(std::string_view title, std::string& path, const ConsolePrompt::Take& check);

  Console& console_;
  ConsolePrompt prompt_;
  BuildContext* build_ = nullptr;
};
