#pragma once

#include "coreapi/Vekservices.h"

class BuildContext;
class Console;

/// File and folder choosers at a terminal: the title, the name as it stands, and one line of answer; an empty
/// line keeps the name, the end of input cancels. Outside a build, and in an unattended one, nothing is shown
/// and the dialog counts as cancelled; in a build that is a breach of contract and is reported.
class ConsoleDialogs final : public IVekDialogServices {
 public:
  explicit ConsoleDialogs(Console& console) : console_(console) {}

  /// The build that dialogs belong to; null for none.
  void SetBuild(BuildContext* build) { build_ = build; }

  bool BrowseForFile(std::string_view title, std::string& fileName, std::string_view filter,
                     std::string_view defaultExtension) override;
  bool BrowseForDirectory(std::string_view title, std::string& folder) override;

 private:
  bool MayShow() const;
  bool Ask(std::string_view title, std::string& name);

  Console& console_;
  BuildContext* build_ = nullptr;
};
