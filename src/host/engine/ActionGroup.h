#pragma once

#include "coreapi/Vekactionapi.h"

class IVekActionServices;

/// The host's own action type: its children, in order.
class TCustomVekActionGroup : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

 protected:
  bool Execute() override { return true; }
};

class TVekActionGroup final : public PublishedAction<TVekActionGroup, TCustomVekActionGroup> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekActionGroup";
  static constexpr std::span<const PropertyRow> kPublished{};
};

void RegisterHostActions(IVekActionServices& services);
