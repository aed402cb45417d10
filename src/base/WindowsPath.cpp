#include "base/WindowsPath.h"

#include <algorithm>

namespace {

/// Length of the folder part.
size_t FolderLength(std::string_view path) {
  const size_t delimiter = path.find_last_of("\\/");
  if (delimiter != std::string_view::npos) return delimiter + 1;
  return NamesDrive(path) ? 2 : 0;
}

}  // namespace

std::string_view FolderPart(std::string_view path) { return path.substr(0, FolderLength(path)); }
std::string_view NamePart(std::string_view path) { return path.substr(FolderLength(path)); }

std::string_view WithoutTrailingDelimiter(std::string_view path) {
  if (!path.empty() && IsPathDelimiter(path.back())) path.remove_suffix(1);
  return path;
}

std::string WithTrailingDelimiter(std::string_view path, char delimiter) {
  std::string result(path);
  if (!path.empty() && !IsPathDelimiter(path.back())) result += delimiter;
  return result;
}

std::string WithDelimiters(std::string_view path, char delimiter) {
  std::string result(path);
  std::replace_if(result.begin(), result.end(), IsPathDelimiter, delimiter);
  return result;
}

std::string_view DirectoryPart(std::string_view path) {
  const std::string_view folder = FolderPart(path);
  const std::string_view shorter = WithoutTrailingDelimiter(folder);
  // A root keeps its delimiter: "\" and "C:\" are folders, "" and "C:" are not.
  return shorter.empty() || shorter.back() == ':' ? folder : shorter;
}

std::string_view ParentFolder(std::string_view path) { return DirectoryPart(WithoutTrailingDelimiter(path)); }

std::string_view RootOf(std::string_view path) {
  if (NamesDrive(path)) return path.substr(0, 3);
  const bool namesServer = path.size() > 1 && IsPathDelimiter(path[0]) && IsPathDelimiter(path[1]);
  size_t end = namesServer ? 2 : 0;
  for (int delimiters = namesServer ? 2 : 1; delimiters > 0 && end < path.size(); ++end) {
    if (IsPathDelimiter(path[end])) --delimiters;
  }
  return path.substr(0, end);
}

bool HasWildcards(std::string_view spec) {
  return NamePart(spec).find_first_of("*?") != std::string_view::npos;
}
