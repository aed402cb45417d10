#include "cli/Session.h"

#include "base/NearestName.h"
#include "coreapi/Vekerrors.h"
#include "host/engine/ActionGroup.h"
#include "platform/CopyToolVariables.h"
#include "platform/Environment.h"

Session::Session(const Arguments& arguments, bool designTime)
    : drives_(arguments.drives),
      owner_(CreatePlatform([this](char letter) { return DriveFolder(letter); },
                            [this] { return registryFile_; })),
      dialogs_(owner_->GetConsole()),
      services_{catalogue_, catalogue_, options_, dialogs_},
      packages_(owner_->Get()) {
  SetOptions(arguments);
  InstallVekServices(&services_);
  if (arguments.packages.empty()) packages_.Load(packages_.DefaultPackage(), designTime);
  for (const std::string& file : arguments.packages) packages_.Load(file, designTime);
  RegisterHostActions(catalogue_);
  TellCopyTools(arguments.allowProtected);
}

Session::~Session() {
  InstallVekServices(nullptr);
  options_.Unregister();
}

/// They are programs of their own, and what is set for this run holds for them as well.
void Session::TellCopyTools(bool allowProtected) {
  Environment& environment = *GetPlatform().environment;
  std::string drives;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const auto folder = DriveFolder(letter);
    if (folder) drives.append(1, letter).append(1, '=').append(environment.FullPath(*folder)).append(1, '\n');
  }
  if (!drives.empty()) environment.Export(kDrivesVariable, drives);
  environment.Export(kNoPreserveRootVariable,
                     allowProtected ? std::optional<std::string>("1") : std::nullopt);
}

const CatalogueEntry& Session::FindType(const std::string& typeId) const {
  if (const CatalogueEntry* entry = catalogue_.Find(typeId)) return *entry;
  throw EVekError("unknown action type \"" + typeId + '"' + DidYouMean(typeId, catalogue_.TypeIds()));
}

void Session::SetOptions(const Arguments& arguments) {
  options_.Load(GetPlatform());
  for (const auto& [name, key, value] : arguments.options) options_.Override(name, key, value);
  registryFile_ = options_.ReadOption("Registry", "File");
  // Steps of a build may change the current folder.
  if (!registryFile_.empty()) registryFile_ = GetPlatform().environment->FullPath(registryFile_);
}

std::optional<std::string> Session::DriveFolder(char letter) {
  const auto given = drives_.find(letter);
  if (given != drives_.end()) return given->second;
  const std::string stored = options_.ReadOption("Drives", std::string(1, letter));
  return stored.empty() ? std::nullopt : std::optional(stored);
}
