#pragma once

#include <string>
#include <string_view>

/// Names on a disk may hold '\', '*' and '?', which mean something else in a path. They are shown with the
/// private-use characters U+F05C, U+F02A and U+F03F in their place, as other systems that bridge the two
/// worlds do, and mean the same on the way back.

/// Whether a name is shown as it stands on the disk.
inline bool IsShownAsItStands(std::string_view diskName) {
  return diskName.find_first_of("\\*?") == std::string_view::npos;
}

/// A name on the disk, or a path of such names, as it is shown.
std::string ShownName(std::string_view diskName);

/// The name on the disk, or the native path, that is shown so.
std::string DiskName(std::string_view shownName);
