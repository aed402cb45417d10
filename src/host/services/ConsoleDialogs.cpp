#include "host/services/ConsoleDialogs.h"

#include "host/engine/BuildContext.h"
#include "platform/Console.h"

bool ConsoleDialogs::BrowseForFile(std::string_view title, std::string& fileName, std::string_view /*filter*/,
                                   std::string_view /*defaultExtension*/) {
  return Ask(title, fileName);
}

bool ConsoleDialogs::BrowseForDirectory(std::string_view title, std::string& folder) {
  return Ask(title, folder);
}

bool ConsoleDialogs::MayShow() const {
  if (!build_) return false;
  if (build_->IsUnattended()) {
    build_->ReportError("Contract breach: a dialog while unattended");
    return false;
  }
  if (!build_->InSynchronize()) build_->ReportError("Contract breach: user interface outside Synchronize");
  return true;
}

bool ConsoleDialogs::Ask(std::string_view title, std::string& name) {
  if (!MayShow()) return false;
  std::string prompt(title);
  if (!name.empty()) prompt.append(" [").append(name).append("]");
  console_.StandardError().Write(prompt + ": ");
  const auto answer = console_.ReadLine();
  if (!answer) return false;
  if (!answer->empty()) name = *answer;
  return true;
}
