#pragma once

#include "coreapi/Vekactionapi.h"

/// "Run Script": runs the user's script and takes the result of the step from it.
class TVekCustomScriptAction : public TVekAction {
 public:
  static const ActionClass kClass;
  explicit TVekCustomScriptAction(IVekActionHost& host);

 protected:
  void InitialiseScriptParams(IVekActionScript& script) override;
  bool Execute() override;
};

class TVekScriptAction final : public PublishedAction<TVekScriptAction, TVekCustomScriptAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekScriptAction";
  static constexpr std::span<const PropertyRow> kPublished{};
};
