#pragma once

#include <string>
#include <string_view>

#include "coreapi/Vekservices.h"
#include "vekcoreapi_export.h"

struct Platform;
class TCustomVekAction;

/// Choosers. They start from the given text; true when the user confirmed, and the text is then what was
/// chosen. [user-interface thread]
VEK_API bool VekBrowseForFile(std::string_view title, std::string& fileName, std::string_view filter,
                              std::string_view defaultExtension = {}, TMustExist mustExist = TMustExist::No);
VEK_API bool VekBrowseForDirectory(std::string_view title, std::string& folder,
                                   TMustExist mustExist = TMustExist::No);

/// Tells the user something; nothing is asked. [user-interface thread]
VEK_API void VekShowMessage(std::string_view text);

/// The same for an action that runs: shown on the user-interface thread, and not at all while the build runs
/// unattended, which counts as cancelled. [build thread]
VEK_API bool VekBrowseForFileRuntime(TCustomVekAction& action, std::string_view title, std::string& fileName,
                                     std::string_view filter, std::string_view defaultExtension = {},
                                     TMustExist mustExist = TMustExist::No);
VEK_API bool VekBrowseForDirectoryRuntime(TCustomVekAction& action, std::string_view title,
                                          std::string& folder, TMustExist mustExist = TMustExist::No);

/// The text in double quotes, as a program takes it from its command line: backslashes before the closing
/// quote are doubled. With `onlyOnce` a text that stands in quotes already is left alone.
VEK_API std::string DoubleQuoteString(std::string_view text, bool onlyOnce);

/// The folder that holds a file or folder, without a trailing delimiter except for a root.
VEK_API std::string GetParentDir(std::string_view path);

/// The path with a trailing delimiter, spelt as the path is; an empty one stays empty.
VEK_API std::string AsFolder(const Platform& platform, std::string_view path);

/// The folder part of what is searched, spelt as finds are: every delimiter as the first one.
VEK_API std::string SearchedFolder(const Platform& platform, std::string_view spec);

/// Where the operating system keeps its programs: the option System.Directory where it is set.
VEK_API std::string GetSysDirectory(const Platform& platform);

/// The full name of a file that does not exist yet, in the given folder or else in the one for temporary
/// files: the prefix, a random number and ".tmp".
VEK_API std::string GetTemporaryFileName(const Platform& platform, std::string_view prefix,
                                         std::string_view folder = {});
