#include <algorithm>
#include <set>
#include <span>
#include <string_view>

#include "gtest/gtest.h"

#include "coreapi/Vekbaseiteratoraction.h"
#include "fileops/VekDeleteFilesAction.h"
#include "forms/Vekpluginapi.h"
#include "frame/Vekcatalogue.h"
#include "frame/Vekfilereg.h"
#include "support/NullHost.h"
#include "support/ScriptedServices.h"

// What holds for the rows of every registered type; a new one needs no line here.

namespace {

/// Where a row is not as the others are, because that is what hosts count on.
struct RowException {
  std::string_view owner;  // the class that has it
  std::string_view property;
  auto operator<=>(const RowException&) const = default;
  friend void PrintTo(const RowException& row, std::ostream* out) {
    *out << row.owner << ' ' << row.property;
  }
};
using Exceptions = std::set<RowException>;

/// Lines of classes that have no such property.
const Exceptions kIdleLines = {
    {"TCustomVekWriteToTextFileAction", "NewFileName"},
    {"TCustomTextReplaceAction", "NewFilename"},  // its property has another letter case
    {"TCustomRunDosCMDAction", "ProgramName"},
    {"TCustomRunDosCMDAction", "Params"},
};

/// Stored properties that can be written and that no control of the type's pages is bound to. The page of the
/// registry carries its own: not each of its types has them all, and the root is shown by name.
const Exceptions kUnedited = {
    {"TCopyFilesAction", "FilesAffected"},  {"TMoveFilesAction", "FilesAffected"},
    {"TMoveFilesAction", "Recurse"},        {"TReadRegValueAction", "RegRoot"},
    {"TReadRegValueAction", "VekVariable"}, {"TSetRegValueAction", "RegRoot"},
    {"TSetRegValueAction", "RegValue"},     {"TSetRegValueAction", "AllowCreateKey"},
    {"TDeleteRegValueAction", "RegRoot"},   {"TVekQuestionAction", "DefaultIsCancel"},
    {"TFileExistsAction", "Force"},
};

struct Rows : testing::Test {
  Rows() { VekRegister(true); }
  std::span<const CatalogueEntry> Entries() const { return services.catalogue.Entries(); }

  ScriptedServices services;
  NullHost host;
};

/// The property that an alias, help, hidden or read-only line names; empty for a group.
std::string_view NamedBy(std::string_view line) {
  return line.starts_with('[') ? std::string_view() : line.substr(0, line.find('='));
}

/// Whether a class that inherits the line has the property.
bool IsKnown(std::span<const CatalogueEntry> entries, const ActionClass& level, std::string_view property) {
  return std::ranges::any_of(entries, [&](const CatalogueEntry& entry) {
    const auto rows = entry.actionClass->AllProperties();
    return entry.actionClass->InheritsFrom(level) &&
           std::ranges::any_of(rows, [&](const PropertyRow* row) { return row->name == property; });
  });
}

TEST_F(Rows, LinesNameProperties) {
  Exceptions idle;
  for (const CatalogueEntry& entry : Entries()) {
    for (const ActionClass* level = entry.actionClass; level; level = level->inherited) {
      for (const auto lines :
           {level->aliases, level->help, level->hiddenProperties, level->readOnlyProperties}) {
        for (const std::string_view line : lines) {
          const std::string_view name = NamedBy(line);
          if (!name.empty() && !IsKnown(Entries(), *level, name)) idle.insert({level->className, name});
        }
      }
    }
  }
  EXPECT_EQ(idle, kIdleLines);
}

TEST_F(Rows, NamesAreUnique) {
  for (const CatalogueEntry& entry : Entries()) {
    std::set<std::string_view, LessNoCase> names;
    for (const PropertyRow* row : entry.actionClass->AllProperties()) {
      EXPECT_TRUE(names.insert(row->name).second) << entry.typeId << ' ' << row->name;
    }
  }
}

TEST_F(Rows, EveryPropertySaysWhatItIsFor) {
  for (const CatalogueEntry& entry : Entries()) {
    StringList help;
    entry.actionClass->create(host)->GetPropertyHelp(help);
    for (const PropertyRow* row : entry.actionClass->AllProperties()) {
      const bool said = !row->meaning.empty() || std::ranges::any_of(help, [row](const std::string& line) {
        return SameText(NamedBy(line), row->name);
      });
      EXPECT_TRUE(said || !row->published) << entry.typeId << ' ' << row->name;
    }
  }
}

/// A base whose properties the host itself offers; the loop variable has another name in each iterator.
bool IsHostBase(const ActionClass& level) {
  return &level == &TVekAction::kClass || &level == &TVekBaseIterator::kClass;
}

bool IsBound(const CatalogueEntry& entry, const PropertyRow& row) {
  return std::ranges::any_of(entry.pages, [&row](const PageClass* pageClass) {
    const auto page = pageClass->create();
    return std::ranges::any_of(page->Controls(), [&row](const auto& control) {
      return control->Property() && control->Property()->name == row.name;
    });
  });
}

TEST_F(Rows, PagesEditEveryProperty) {
  Exceptions unedited;
  for (const CatalogueEntry& entry : Entries()) {
    if (entry.pages.empty()) continue;
    const auto action = entry.actionClass->create(host);
    StringList closed;
    action->GetHiddenProperties(closed);
    action->GetReadOnlyProperties(closed);
    for (const ActionClass* level = entry.actionClass; !IsHostBase(*level); level = level->inherited) {
      for (const PropertyRow& row : level->properties) {
        const bool open = row.published && row.stored && row.set && !std::ranges::count(closed, row.name);
        if (open && !IsBound(entry, row)) unedited.insert({entry.actionClass->className, row.name});
      }
    }
  }
  EXPECT_EQ(unedited, kUnedited);
}

// What does not compile.
struct TTwiceAction : PublishedAction<TTwiceAction, TCustomDeleteFilesAction> {
  std::string Own;
  static constexpr PropertyRow kPublished[] = {Published<&TTwiceAction::Own>("NAME")};
};
static_assert(!property_detail::HasUniqueNames<TTwiceAction>(), "the base of every action has a Name");
static_assert(HasProperty<TDeleteFilesAction>("ByteString", "FileSpec"));
static_assert(HasProperty<TDeleteFilesAction>("WordBool", ""));
static_assert(!HasProperty<TDeleteFilesAction>("WideString", "FileSpec"));
static_assert(!HasProperty<TDeleteFilesAction>("Integer", "FilesAffected"), "it is a result of the run");

constexpr CatalogueRow kTwice[] = {{.typeId = "A"}, {.typeId = "B"}, {}, {}, {.typeId = "A"}};
static_assert(!HasUniqueTypeIds(kTwice));

}  // namespace
