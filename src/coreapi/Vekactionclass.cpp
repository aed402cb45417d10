#include "coreapi/Vekactionclass.h"

namespace {

/// The nearest answer up the hierarchy that is not empty.
template <class Field>
Field Inherited(const ActionClass* start, Field ActionClass::*field) {
  for (const ActionClass* level = start; level; level = level->inherited) {
    if (level->*field != Field{}) return level->*field;
  }
  return {};
}

}  // namespace

std::string_view ActionClass::ActionName() const { return Inherited(this, &ActionClass::actionName); }
int32_t ActionClass::HelpTopicID() const { return Inherited(this, &ActionClass::helpTopicID); }
std::string_view ActionClass::QuickHelpFilename() const {
  return Inherited(this, &ActionClass::quickHelpFilename);
}
std::string_view ActionClass::CopyRight() const { return Inherited(this, &ActionClass::copyRight); }
int32_t ActionClass::Flags() const { return Inherited(this, &ActionClass::flags); }
bool ActionClass::Raises() const { return Inherited(this, &ActionClass::raises); }

bool ActionClass::InheritsFrom(const ActionClass& other) const {
  for (const ActionClass* level = this; level; level = level->inherited) {
    if (level == &other) return true;
  }
  return false;
}

std::vector<const PropertyRow*> ActionClass::AllProperties() const {
  std::vector<const PropertyRow*> rows;
  if (inherited) rows = inherited->AllProperties();
  for (const PropertyRow& row : properties) rows.push_back(&row);
  return rows;
}
