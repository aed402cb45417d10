#pragma once

#include "forms/Vekpluginapi.h"
#include "process/VekRobocopyMainAction.h"

/// Base of the pages on which robocopy's attributes are chosen.
template <class Action>
class TRobocopyAttributesFrame : public TActionFrame<Action> {
 protected:
  using TActionFrame<Action>::TActionFrame;
  template <class Demand>
  using Property = PropertyOf<Action, std::type_identity_t<Demand>>;

  /// A check box for each attribute that the property may hold; their names begin with the prefix.
  template <class Attribute>
  void AttributeBoxes(const std::string& prefix, Property<SetWith<Attribute>> property) {
    struct Box {
      const char *name, *caption;
    };
    // In the order of the enumerations; the shorter one lacks the last of the other.
    static constexpr Box kBoxes[] = {
        {"ReadOnly", "Read Only"},    {"System", "System"},   {"NotIndexed", "Not Content Indexed"},
        {"Archive", "Archive"},       {"Hidden", "Hidden"},   {"Temporary", "Temporary"},
        {"Compressed", "Compressed"}, {"Offline", "Offline"}, {"Encrypted", "Encrypted"},
    };
    for (size_t i = 0; i < kEnumNames<Attribute>.values.size(); ++i) {
      this->CheckBox(prefix + kBoxes[i].name, kBoxes[i].caption, property, static_cast<Attribute>(i));
    }
  }
};
