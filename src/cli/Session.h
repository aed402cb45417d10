#pragma once

#include <memory>
#include <string>

#include "cli/Arguments.h"
#include "coreapi/Vekservices.h"
#include "host/catalogue/Catalogue.h"
#include "host/catalogue/Packages.h"
#include "host/services/ConsoleDialogs.h"
#include "host/services/OptionStore.h"
#include "platform/CreatePlatform.h"

/// What every command needs: the platform, the option store and the loaded packages. Lives as long as
/// anything made from the packages' classes.
class Session {
 public:
  /// Loads the packages; raises EVekError when one does not load or the option store is unreadable.
  Session(const Arguments& arguments, bool designTime);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  const Platform& GetPlatform() const { return owner_->Get(); }
  Console& GetConsole() { return owner_->GetConsole(); }
  ConsoleDialogs& Dialogs() { return dialogs_; }
  const Catalogue& GetCatalogue() const { return catalogue_; }

  /// The entry of a type id; raises EVekError, which names the nearest one, when there is none.
  const CatalogueEntry& FindType(const std::string& typeId) const;

 private:
  void SetOptions(const Arguments& arguments);
  std::optional<std::string> DriveFolder(char letter);
  void TellCopyTools(bool allowProtected);

  const std::map<char, std::string> drives_;
  OptionStore options_;
  std::string registryFile_;  // empty: the one in the data folder
  std::unique_ptr<PlatformOwner> owner_;
  Catalogue catalogue_;
  ConsoleDialogs dialogs_;
  VekHostServices services_;
  Packages packages_;
};
