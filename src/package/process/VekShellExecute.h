#pragma once

#include <string>

#include "coreapi/Vekactionapi.h"

class RunningProcess;
struct ShellRequest;

/// "Shell Execute": opens, prints or otherwise acts on a document as the desktop does, and may wait for the
/// program that does it.
class TCustomVekShellExecute : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  const std::string& FileSpec() const { return fileSpec_; }
  void SetFileSpec(const std::string& value);  // refuses wildcards, and tells the user
  std::string Action = "print";                // the verb, never expanded
  std::string Parameters, WorkingDir;
  bool WaitForCompletion = false;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  bool ExpandRequest(ShellRequest& request) const;
  bool WaitFor(RunningProcess& process, const std::string& file);

  std::string fileSpec_;
};

class TVekShellExecute final : public PublishedAction<TVekShellExecute, TCustomVekShellExecute> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekShellExecute";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekShellExecute::FileSpec, &TCustomVekShellExecute::SetFileSpec>("FileSpec",
                                                                                         TextRole::File)
          .Means("The document or program; no wildcards"),
      Published<&TCustomVekShellExecute::Action>("Action").Means(
          "What to do with it: print, open, edit or another verb that is registered for it"),
      Published<&TCustomVekShellExecute::Parameters>("Parameters")
          .Means("What a program is given; documents take none"),
      Published<&TCustomVekShellExecute::WorkingDir>("WorkingDir", TextRole::Folder)
          .Means("The folder to start in"),
      Published<&TCustomVekShellExecute::WaitForCompletion>("WaitForCompletion")
          .Means("Wait for the program, for a minute at most; one that takes longer is a failure"),
  };
};
