#pragma once

#include <string>

#include "coreapi/Vekactionapi.h"

struct SysResult;

/// The text in the form that expands to it.
std::string EscapeReferences(std::string_view text);

/// "Read Text File": puts a file's contents into a variable, hands its lines to a script, or both.
class TCustomVekReadTextFileAction : public TVekAction {
 public:
  static const ActionClass kClass;
  explicit TCustomVekReadTextFileAction(IVekActionHost& host);

  std::string FileName;
  std::string VekVariable;
  bool PutContentsInVar = false;
  bool EscapeVariables = false;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  void InitialiseScriptParams(IVekActionScript& script) override;
  bool Execute() override;

 private:
  SysResult StoreContents(const std::string& contents) const;
  bool RunLines(std::string_view contents);
};

class TVekReadTextFileAction final
    : public PublishedAction<TVekReadTextFileAction, TCustomVekReadTextFileAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekReadTextFileAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekReadTextFileAction::FileName>("FileName", TextRole::File),
      Published<&TCustomVekReadTextFileAction::VekVariable>("VekVariable", TextRole::Variable),
      Published<&TCustomVekReadTextFileAction::PutContentsInVar>("PutContentsInVar"),
      Published<&TCustomVekReadTextFileAction::EscapeVariables>("EscapeVariables")
          .Means("Double % and write $( as $$(, so that the text stays as it is when it is expanded"),
  };
};
