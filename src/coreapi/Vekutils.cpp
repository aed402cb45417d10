#include "coreapi/Vekutils.h"

#include <cstdint>
#include <cstdio>
#include <functional>

#include "base/WindowsPath.h"
#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekservices.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/Platform.h"

bool VekBrowseForFile(std::string_view title, std::string& fileName, std::string_view filter,
                      std::string_view defaultExtension, TMustExist mustExist) {
  return VekDialogServices().BrowseForFile(title, fileName, filter, defaultExtension, mustExist);
}

bool VekBrowseForDirectory(std::string_view title, std::string& folder, TMustExist mustExist) {
  return VekDialogServices().BrowseForDirectory(title, folder, mustExist);
}

void VekShowMessage(std::string_view text) { VekDialogServices().ShowMessage(text); }

/// Shows a dialog for an action that runs.
class VekRuntimeBrowser {
 public:
  static bool Show(TCustomVekAction& action, const std::function<bool()>& dialog) {
    if (action.GetIsUnattended()) return false;
    bool confirmed = false;
    action.Synchronize([&] { confirmed = dialog(); });
    return confirmed;
  }
};

bool VekBrowseForFileRuntime(TCustomVekAction& action, std::string_view title, std::string& fileName,
                             std::string_view filter, std::string_view defaultExtension,
                             TMustExist mustExist) {
  return VekRuntimeBrowser::Show(
      action, [&] { return VekBrowseForFile(title, fileName, filter, defaultExtension, mustExist); });
}

bool VekBrowseForDirectoryRuntime(TCustomVekAction& action, std::string_view title, std::string& folder,
                                  TMustExist mustExist) {
  return VekRuntimeBrowser::Show(action, [&] { return VekBrowseForDirectory(title, folder, mustExist); });
}

std::string DoubleQuoteString(std::string_view text, bool onlyOnce) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  if (onlyOnce && quoted) return std::string(text);
  const size_t lastOther = text.find_last_not_of('\\');
  const size_t backslashes = text.size() - (lastOther == std::string_view::npos ? 0 : lastOther + 1);
  return '"' + std::string(text) + std::string(backslashes, '\\') + '"';
}

std::string GetParentDir(std::string_view path) { return std::string(ParentFolder(path)); }

std::string AsFolder(const Platform& platform, std::string_view path) {
  return WithTrailingDelimiter(path, platform.environment->PathDelimiter(path));
}

std::string SearchedFolder(const Platform& platform, std::string_view spec) {
  return WithDelimiters(FolderPart(spec), platform.environment->PathDelimiter(spec));
}

std::string GetSysDirectory(const Platform& platform) {
  std::string folder = VekOptionsServices().ReadOption("System", "Directory");
  return folder.empty() ? platform.environment->SystemFolder() : folder;
}

std::string GetTemporaryFileName(const Platform& platform, std::string_view prefix, std::string_view folder) {
  const std::string start =
      AsFolder(platform, folder.empty() ? platform.environment->TempFolder() : folder).append(prefix);
  std::string fileName;
  do {
    char number[9];
    std::snprintf(number, sizeof number, "%08X", platform.environment->RandomNumber());
    fileName = platform.environment->FullPath(start + number + ".tmp");
  } while (platform.entries->EntryExists(fileName));
  return fileName;
}
