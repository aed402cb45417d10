#pragma once

#include <string>

#include "coreapi/Vekactionapi.h"

/// Calls `visit(row, text)` with every text of the published properties; with each line of a list.
template <class Visit>
void ForEachText(const TCustomVekAction& action, Visit visit) {
  for (const PropertyRow* row : action.PropertyRows()) {
    if (!row->published || !row->set || !row->IsText()) continue;
    const PropertyValue value = row->get(action);
    if (const auto* lines = std::get_if<StringList>(&value)) {
      for (const std::string& line : *lines) visit(*row, line);
    } else {
      visit(*row, std::get<std::string>(value));
    }
  }
}
