#include "host/catalogue/PropertyMeaning.h"

#include <algorithm>

#include "coreapi/Vekactionapi.h"

namespace {

/// The text behind "Property="; the last line of a name wins.
std::string TextOf(std::string_view property, const StringList& lines) {
  std::string text;
  for (const std::string& line : lines) {
    const size_t equals = line.find('=');
    if (equals != std::string::npos && SameText(line.substr(0, equals), property))
      text = line.substr(equals + 1);
  }
  return text;
}

}  // namespace

StringList PropertyMeaning(const PropertyRow& row, const TCustomVekAction& action) {
  StringList help, titles;
  action.GetPropertyHelp(help);
  action.GetPropertyAlias(titles);
  StringList meaning{TextOf(row.name, help), std::string(row.meaning)};
  std::erase(meaning, "");
  if (meaning.empty()) meaning.push_back(TextOf(row.name, titles));
  std::erase(meaning, "");
  return meaning;
}
