#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "coreapi/Vekproperties.h"

class IVekActionHost;
class TCustomVekAction;

/// What a class of actions answers, as data. Each class of a hierarchy has one; what it leaves out it
/// inherits, and lists grow from the base down: inherited lines first.
///
/// A logic class declares `static const ActionClass kClass;` and defines it at the top of its source; the
/// published class gets its own from PublishedAction.
struct VEK_API ActionClass {
  const ActionClass* inherited = nullptr;
  std::string_view className = {};
  std::string_view actionName = {};
  int32_t helpTopicID = 0;
  std::string_view quickHelpFilename = {};
  std::string_view copyRight = {};
  std::span<const std::string_view> aliases = {};  // "[Group]", "Property=Display title"
  std::span<const std::string_view> help = {};     // "Property=Help text"
  std::span<const std::string_view> hiddenProperties = {};
  std::span<const std::string_view> readOnlyProperties = {};
  std::span<const PropertyRow> properties = {};
  std::unique_ptr<TCustomVekAction> (*create)(IVekActionHost&) = nullptr;
  int32_t flags = 0;    // as GetFlags answers them
  bool raises = false;  // Execute may let exceptions pass to the host

  std::string_view ActionName() const;
  int32_t HelpTopicID() const;
  std::string_view QuickHelpFilename() const;
  std::string_view CopyRight() const;
  int32_t Flags() const;
  bool Raises() const;
  bool InheritsFrom(const ActionClass& other) const;
  std::vector<const PropertyRow*> AllProperties() const;
};
