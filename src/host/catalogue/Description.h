#pragma once

#include <string>

class Catalogue;
class IVekActionHost;
struct CatalogueEntry;

/// The catalogue for people: one line per action type, grouped by category.
std::string ListActionsAsText(const Catalogue& catalogue);
std::string ListActionsAsJson(const Catalogue& catalogue);

/// Everything that an action type answers about itself. The host is what an instance is made with, for its
/// defaults.
/// `width` is in columns; 0 for lines as long as they are.
std::string DescribeAsText(const Catalogue& catalogue, const CatalogueEntry& entry, IVekActionHost& host,
                           size_t width = 0);
std::string DescribeAsJson(const Catalogue& catalogue, const CatalogueEntry& entry, IVekActionHost& host);
