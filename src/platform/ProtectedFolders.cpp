#include "platform/ProtectedFolders.h"

#include <algorithm>

#include "base/Text.h"
#include "base/Wildcard.h"
#include "base/WindowsPath.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/FileAttributes.h"
#include "platform/Platform.h"

namespace {

using Identity = std::optional<EntryIdentity>;

std::string Above(std::string_view folder) { return std::string(folder) + "/.."; }

/// Not every system answers for the root of a drive who it is.
bool IsSpeltAsRoot(std::string_view fullPath) {
  return NamesDrive(fullPath) && fullPath.size() == 3 && IsPathDelimiter(fullPath[2]);
}

bool IsRoot(Entries& entries, std::string_view folder, const Identity& identity) {
  return entries.Identity(Above(folder)) == identity;
}

/// A drive may stand for a folder that is no root by itself.
bool IsDrive(Entries& entries, std::string_view folder, const Identity& identity) {
  return NamesDrive(folder) && entries.Identity(std::string(folder.substr(0, 2)) + '\\') == identity;
}

/// Whether the folder of that identity is `inner` or one above it.
bool Holds(Entries& entries, const Identity& identity, std::string inner) {
  Identity below;
  for (Identity at = entries.Identity(inner); at && at != below; at = entries.Identity(inner)) {
    if (at == identity) return true;
    below = at;
    inner = Above(inner);
  }
  return false;
}

bool IsLink(Entries& entries, std::string_view path) {
  uint32_t attributes = 0;
  return entries.GetAttributes(path, attributes) && (attributes & FileAttribute::ReparsePoint) != 0;
}

}  // namespace

bool IsProtectedTree(const Platform& platform, std::string_view folder, std::string_view projectFile) {
  Entries& entries = *platform.entries;
  Environment& environment = *platform.environment;
  const StringList reserved = environment.ReservedFolders();
  if (IsSpeltAsRoot(environment.FullPath(folder))) return true;
  const bool meansTarget = !folder.empty() && IsPathDelimiter(folder.back());
  if (!meansTarget && IsLink(entries, folder)) {
    const std::string path = environment.FullPath(folder);
    return std::ranges::any_of(reserved, [&](const std::string& own) { return SameText(own, path); });
  }
  const Identity identity = entries.Identity(folder);
  if (!identity) return false;
  const auto isIt = [&](const std::string& own) { return entries.Identity(own) == identity; };
  return IsRoot(entries, folder, identity) || IsDrive(entries, folder, identity) ||
         std::ranges::any_of(reserved, isIt) || Holds(entries, identity, environment.HomeFolder()) ||
         (!projectFile.empty() && Holds(entries, identity, std::string(DirectoryPart(projectFile))));
}

bool IsProtectedSelection(const Platform& platform, std::string_view spec) {
  if (!HasWildcards(spec)) return false;
  Entries& entries = *platform.entries;
  const std::string_view folder = FolderPart(spec).empty() ? "." : FolderPart(spec);
  if (IsSpeltAsRoot(platform.environment->FullPath(folder))) return true;
  const Identity identity = entries.Identity(folder);
  if (!identity) return false;
  return IsRoot(entries, folder, identity) ||
         (DosMask(NamePart(spec)).MatchesAll() &&
          entries.Identity(platform.environment->HomeFolder()) == identity);
}

bool HoldsFolder(const Platform& platform, std::string_view folder, std::string_view inner) {
  const Identity identity = platform.entries->Identity(folder);
  if (!identity) return false;
  std::string existing = platform.environment->FullPath(inner);
  while (!platform.entries->Identity(existing) && ParentFolder(existing).size() < existing.size()) {
    existing = ParentFolder(existing);
  }
  return Holds(*platform.entries, identity, existing);
}
