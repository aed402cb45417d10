#include "host/catalogue/Description.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

#include "coreapi/Vekactionapi.h"
#include "forms/Vekpluginapi.h"
#include "forms/Vekpropertyeditors.h"
#include "host/catalogue/Catalogue.h"
#include "host/catalogue/PropertyMeaning.h"
#include "host/log/DisplayText.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kVaries = "varies";  // a default that is not the same every time

std::string ToText(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

Json PageClassNames(const CatalogueEntry& entry) {
  Json names = Json::array();
  for (const PageClass* page : entry.pages) names.push_back(page->className);
  return names;
}

Json ControlsOf(const TFrame& page) {
  Json controls = Json::array();
  for (const auto& control : page.Controls()) {
    const PropertyRow* property = control->Property();
    controls.push_back({{"name", control->Name()},
                        {"kind", control->ClassName().substr(1)},
                        {"caption", control->Caption()},
                        {"hint", control->Hint()},
                        {"property", property ? property->name : ""},
                        {"choices", control->Choices()}});
  }
  return controls;
}

Json PagesOf(const CatalogueEntry& entry) {
  Json pages = Json::array();
  for (const PageClass* pageClass : entry.pages) {
    const auto page = pageClass->create();
    pages.push_back({{"className", pageClass->className},
                     {"pageName", page->PageName()},
                     {"controls", ControlsOf(*page)}});
  }
  return pages;
}

/// A property has the editor that was registered for its type and name, or for every property of its type.
bool Applies(const RegisteredEditor& editor, const TCustomVekAction& action) {
  for (const PropertyRow* row : action.PropertyRows()) {
    const bool named = editor.propertyName.empty() || editor.propertyName == row->name;
    if (row->published && named && editor.propertyType == row->TypeName()) return true;
  }
  return false;
}

/// The editors as registered; one whose property the class lacks, or has with another type, never applies.
Json EditorsOf(const Catalogue& catalogue, const CatalogueEntry& entry, const TCustomVekAction& action) {
  Json editors = Json::array();
  for (const RegisteredEditor& editor : catalogue.Editors()) {
    if (!entry.actionClass->InheritsFrom(*editor.actionClass)) continue;
    editors.push_back({{"property", editor.propertyName},
                       {"editor", editor.editor->className},
                       {"propertyType", editor.propertyType},
                       {"applies", Applies(editor, action)}});
  }
  return editors;
}

Json DefaultOf(const PropertyRow& row, const TCustomVekAction& action) {
  const PropertyValue value = row.get(action);
  if (const bool* truth = std::get_if<bool>(&value)) return *truth;
  if (const StringList* lines = std::get_if<StringList>(&value)) return *lines;
  if (row.type == PropertyType::Integer || row.type == PropertyType::Cardinal)
    return std::get<int64_t>(value);
  return PropertyToText(row, value);
}

bool IsOwn(const PropertyRow* row, const CatalogueEntry& entry) {
  const auto& own = entry.actionClass->properties;
  return row >= own.data() && row < own.data() + own.size();
}

Json PropertiesOf(const CatalogueEntry& entry, const TCustomVekAction& action) {
  Json properties = Json::array();
  for (const PropertyRow* row : action.PropertyRows()) {
    if (!row->published) continue;
    Json property{{"name", row->name},
                  {"type", PropertyTypeName(row->type)},
                  {"default", row->varies ? Json(kVaries) : DefaultOf(*row, action)},
                  {"stored", row->stored},
                  {"inherited", !IsOwn(row, entry)}};
    if (row->IsText()) property["role"] = TextRoleName(row->role);
    property["meaning"] = PropertyMeaning(*row, action);
    if (row->enumType) property["values"] = row->enumType().values;
    properties.push_back(std::move(property));
  }
  return properties;
}

template <class Getter>
StringList LinesOf(const TCustomVekAction& action, Getter getter) {
  StringList lines;
  (action.*getter)(lines);
  return lines;
}

constexpr size_t kLeastLastColumn = 30;
constexpr size_t kWidestColumn = 24;  // a longer entry moves only what follows it in its row
constexpr size_t kNoteWidth = 100;    // where no width is asked for
constexpr std::string_view kHanging = "      ";

/// The text broken at the width: the first line begins with `first`, the others with the hanging indent.
std::string Hanging(std::string_view first, std::string_view words, size_t width) {
  std::string text;
  if (words.empty()) return text;
  for (const std::string& line : WrapColumns(words, width - kHanging.size())) {
    text.append(text.empty() ? first : kHanging).append(line).append("\n");
  }
  return text;
}

/// The last column broken into lines of its own: below its start, or below the whole row when little room is
/// left there.
std::string Wrapped(std::string start, std::string_view indent, const std::string& last, size_t width) {
  std::string text;
  if (start.size() + kLeastLastColumn <= width) {
    for (const std::string& line : WrapColumns(last, width - start.size())) {
      text.append(text.empty() ? start : std::string(start.size(), ' ')).append(line).append("\n");
    }
    return text;
  }
  start.resize(start.find_last_not_of(' ') + 1);
  if (start.size() > width) {
    const auto isPadding = [](char a, char b) { return a == ' ' && b == ' '; };
    start.erase(std::ranges::unique(start, isPadding).begin(), start.end());
    text = Hanging(indent, Trim(start), width);
  } else if (!start.empty()) {
    text = start + '\n';
  }
  return text + Hanging(kHanging, last, width);
}

/// Columns padded to the widest entry of each. A row of a single entry is a note below the row before it.
std::string Table(const std::vector<StringList>& rows, std::string_view indent, size_t width = 0) {
  if (width <= kHanging.size() * 2) width = 0;
  std::vector<size_t> widths;
  for (const StringList& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (size_t i = 0; i + 1 < row.size(); ++i) {
      if (i == 0 || row[i].size() <= kWidestColumn) widths[i] = std::max(widths[i], row[i].size());
    }
  }
  std::string text;
  for (const StringList& row : rows) {
    if (row.size() == 1) {
      text += Hanging(kHanging, row.front(), width == 0 ? kNoteWidth : width);
      continue;
    }
    std::string start(indent);
    for (size_t i = 0; i + 1 < row.size(); ++i) {
      start.append(row[i]).append(std::max(widths[i], row[i].size()) - row[i].size() + 2, ' ');
    }
    std::string line = start + row.back();
    line.resize(line.find_last_not_of(' ') + 1);
    const bool fits = width == 0 || line.size() <= width;
    text += fits ? line + '\n' : Wrapped(start, indent, std::string(Trim(row.back())), width);
  }
  return text;
}

std::string TypeText(const PropertyRow& row) {
  if (row.enumType) return row.type == PropertyType::Set ? "set" : "choice";
  std::string text(PropertyTypeName(row.type));
  if (row.IsText() && row.role != TextRole::Plain) text.append(", ").append(TextRoleName(row.role));
  return text;
}

std::string Marks(const PropertyRow& row, const StringList& hidden, const StringList& readOnly) {
  StringList marks;
  if (std::ranges::count(hidden, row.name) != 0) marks.emplace_back("hidden");
  if (!row.set || std::ranges::count(readOnly, row.name) != 0) marks.emplace_back("read-only");
  if (!row.stored) marks.emplace_back("not stored");
  std::string text;
  for (const std::string& mark : marks) text += (text.empty() ? "" : ", ") + mark;
  return text;
}

std::string PropertyTable(const CatalogueEntry& entry, const TCustomVekAction& action, bool own,
                          size_t width) {
  const StringList hidden = LinesOf(action, &TCustomVekAction::GetHiddenProperties);
  const StringList readOnly = LinesOf(action, &TCustomVekAction::GetReadOnlyProperties);
  std::vector<StringList> rows;
  for (const PropertyRow* row : action.PropertyRows()) {
    if (!row->published || IsOwn(row, entry) != own) continue;
    const std::string value = row->varies ? std::string(kVaries) : PropertyToText(*row, row->get(action));
    const std::string marks = Marks(*row, hidden, readOnly);
    StringList meaning = PropertyMeaning(*row, action);
    if (meaning.empty()) meaning.emplace_back();
    if (!marks.empty()) meaning.front() += (meaning.front().empty() ? "(" : " (") + marks + ")";
    rows.push_back({std::string(row->name), TypeText(*row), value.empty() ? "-" : value, meaning.front()});
    for (size_t i = 1; i < meaning.size(); ++i) rows.push_back({"", "", "", meaning[i]});
    if (row->enumType) rows.push_back({DescribeExpectedText(*row)});
  }
  return Table(rows, "  ", width);
}

}  // namespace

std::string ListActionsAsText(const Catalogue& catalogue) {
  std::map<std::string, std::vector<StringList>> categories;
  for (const CatalogueEntry& entry : catalogue.Entries()) {
    categories[entry.category].push_back({entry.typeId, entry.displayName});
  }
  std::string text;
  for (const auto& [category, rows] : categories) {
    text += (text.empty() ? "" : "\n") + category + '\n' + Table(rows, "  ");
  }
  return text;
}

std::string ListActionsAsJson(const Catalogue& catalogue) {
  Json actions = Json::array();
  for (const CatalogueEntry& entry : catalogue.Entries()) {
    actions.push_back({{"typeId", entry.typeId},
                       {"displayName", entry.displayName},
                       {"className", entry.actionClass->className},
                       {"category", entry.category},
                       {"pages", PageClassNames(entry)}});
  }
  return ToText(actions);
}

std::string DescribeAsText(const Catalogue& catalogue, const CatalogueEntry& entry, IVekActionHost& host,
                           size_t width) {
  const auto action = entry.actionClass->create(host);
  std::vector<StringList> facts = {{"Type id", entry.typeId}, {"Category", entry.category}};
  for (const std::string& event : action->ScriptEvents()) facts.push_back({"Script event", event});
  std::string text = entry.displayName + "\n\n" + Table(facts, "  ", width);
  const std::string own = PropertyTable(entry, *action, true, width);
  if (!own.empty()) text += "\nProperties (name, type, default, meaning)\n" + own;
  text += "\nProperties of every action\n" + PropertyTable(entry, *action, false, width);

  facts = {{"Class", std::string(entry.actionClass->className)}};
  for (const PageClass* page : entry.pages) {
    facts.push_back({"Page", page->create()->PageName() + " (" + std::string(page->className) + ")"});
  }
  for (const Json& editor : EditorsOf(catalogue, entry, *action)) {
    if (!editor["applies"].get<bool>()) continue;
    facts.push_back(
        {"Editor", editor["editor"].get<std::string>() + " of " + editor["property"].get<std::string>()});
  }
  return text + "\nFor designers\n" + Table(facts, "  ", width);
}

std::string DescribeAsJson(const Catalogue& catalogue, const CatalogueEntry& entry, IVekActionHost& host) {
  const auto action = entry.actionClass->create(host);
  return ToText({{"typeId", entry.typeId},
                 {"displayName", entry.displayName},
                 {"actionName", action->GetActionName()},
                 {"className", entry.actionClass->className},
                 {"category", entry.category},
                 {"helpTopicId", action->GetHelpTopicID()},
                 {"quickHelpFilename", action->GetQuickHelpFilename()},
                 {"aliases", LinesOf(*action, &TCustomVekAction::GetPropertyAlias)},
                 {"help", LinesOf(*action, &TCustomVekAction::GetPropertyHelp)},
                 {"hidden", LinesOf(*action, &TCustomVekAction::GetHiddenProperties)},
                 {"readOnly", LinesOf(*action, &TCustomVekAction::GetReadOnlyProperties)},
                 {"scripts", action->ScriptEvents()},
                 {"pages", PagesOf(entry)},
                 {"editors", EditorsOf(catalogue, entry, *action)},
                 {"properties", PropertiesOf(entry, *action)}});
}
