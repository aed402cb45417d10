#pragma once

#include <string_view>

struct Platform;

/// What no step takes away unless the user insists, since a mistake would cost too much. Folders are told by
/// what they are on the disk, however their paths are spelt.

/// Whether a whole folder may not be removed or moved away: a root of the file system or of a drive, a folder
/// of the system's own directly below it, and one that is or holds the user's home folder or the folder of
/// `projectFile` (empty for none). Of a link only its own name counts, for what it leads to stays;
/// with a delimiter at its end the path means what the link leads to.
bool IsProtectedTree(const Platform& platform, std::string_view folder, std::string_view projectFile);

/// Whether the entries that match `spec` may not be removed or moved away: wildcards directly in a root, and
/// in the home folder those that match every name.
bool IsProtectedSelection(const Platform& platform, std::string_view spec);

/// Whether `folder` is `inner` or one above it; of an inner folder that is missing, the one that it would
/// come to stand in counts.
bool HoldsFolder(const Platform& platform, std::string_view folder, std::string_view inner);
