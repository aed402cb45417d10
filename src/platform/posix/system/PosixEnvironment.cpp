#include "platform/posix/system/PosixEnvironment.h"

#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <pwd.h>
#include <random>
#include <unistd.h>
#include <vector>

#include "base/Text.h"
#include "base/WindowsPath.h"
#include "platform/posix/paths/DiskChange.h"
#include "platform/posix/paths/ShownNames.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

/// Takes "." and ".." out of an absolute native path, as text.
std::string Resolved(std::string_view path) {
  std::vector<std::string_view> names;
  while (!path.empty()) {
    const std::string_view name = path.substr(0, path.find('/'));
    path.remove_prefix(std::min(path.size(), name.size() + 1));
    if (name == "..") {
      if (!names.empty()) names.pop_back();
    } else if (!name.empty() && name != ".") {
      names.push_back(name);
    }
  }
  std::string result;
  for (std::string_view name : names) result.append(1, '/').append(name);
  return result.empty() ? "/" : result;
}

}  // namespace

std::optional<std::string> PosixEnvironment::Variable(std::string_view name) {
  if (const char* value = std::getenv(std::string(name).c_str())) return value;
  for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    const size_t equals = text.find('=');
    if (equals != std::string_view::npos && SameText(text.substr(0, equals), name)) {
      return std::string(text.substr(equals + 1));
    }
  }
  return {};
}

SysResult PosixEnvironment::Export(std::string_view name, const std::optional<std::string>& text) {
  if (text && text->find('\0') != std::string::npos) return SysResult::Failure(Win32Error::InvalidParameter);
  const std::string variable(name);
  own_.emplace(variable, OwnVariable(variable));
  const int result = text ? setenv(variable.c_str(), text->c_str(), 1) : unsetenv(variable.c_str());
  return result == 0 ? SysResult() : LastFailure();
}

/// A variable of the environment that this program was started with.
std::optional<std::string> PosixEnvironment::OwnVariable(const std::string& name) const {
  if (const auto own = own_.find(name); own != own_.end()) return own->second;
  const char* value = std::getenv(name.c_str());
  return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

std::string PosixEnvironment::CurrentFolder() {
  const std::unique_ptr<char, decltype(&std::free)> folder(getcwd(nullptr, 0), &std::free);
  return folder ? ShownName(folder.get()) : "/";
}

SysResult PosixEnvironment::SetCurrentFolder(std::string_view path) {
  if (path.empty()) return SysResult::Failure(Win32Error::PathNotFound);
  const Place place = paths_.LocateFolder(path);
  if (!place.folder) return SysResult::Failure(place.error);
  // Not by descriptor: one that only names the folder may lack the right to enter it.
  if (chdir(place.folder->path.c_str()) != 0) return LastFailure();
  const DiskChange change(paths_);
  return {};
}

std::string PosixEnvironment::FullPath(std::string_view path) {
  const auto native = paths_.Native(path);
  if (!native) return std::string(path);
  return Resolved(native->starts_with('/') ? *native : CurrentFolder() + '/' + *native);
}

char PosixEnvironment::PathDelimiter(std::string_view path) {
  const size_t first = path.find_first_of("\\/");
  return first == std::string_view::npos ? '/' : path[first];
}

std::string PosixEnvironment::NativePath(std::string_view path) {
  const auto native = paths_.Native(path);
  if (!native) return std::string(path);
  Place place = paths_.Locate(path);
  struct stat status = {};
  const auto stands = [&] { return fstatat(place.Fd(), place.Name(), &status, AT_SYMLINK_NOFOLLOW) == 0; };
  if (!place.folder || place.name == "." || !(stands() || paths_.OtherCase(place))) return DiskName(*native);
  const std::string_view written = WithoutTrailingDelimiter(*native);
  if (FolderPart(written).empty()) return place.name;
  std::string folder = place.folder->path;
  if (folder.back() != '/') folder += '/';
  return folder + place.name;
}

std::string PosixEnvironment::TempFolder() {
  const char* folder = std::getenv("TMPDIR");
  return FullPath(folder != nullptr && *folder != '\0' ? folder : "/tmp");
}

uint32_t PosixEnvironment::RandomNumber() { return std::random_device()(); }

std::string PosixEnvironment::HomeFolder() {
  if (const auto home = OwnVariable("HOME"); home && !home->empty()) return *home;
  const passwd* user = getpwuid(getuid());
  return user != nullptr ? user->pw_dir : "/";
}

StringList PosixEnvironment::ReservedFolders() {
  return {"/bin",    "/boot",       "/dev",   "/etc", "/home", "/lib",  "/lib32", "/lib64",
          "/libx32", "/lost+found", "/media", "/mnt", "/opt",  "/proc", "/root",  "/run",
          "/sbin",   "/snap",       "/srv",   "/sys", "/tmp",  "/usr",  "/var"};
}

std::string PosixEnvironment::DataFolder() {
  // A relative XDG folder is to be ignored.
  const auto data = OwnVariable("XDG_DATA_HOME");
  if (data && data->starts_with('/')) return Resolved(*data + "/vekrun");
  return Resolved(HomeFolder() + "/.local/share/vekrun");
}

std::string PosixEnvironment::ProgramFolder() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  if (length <= 0) return CurrentFolder();
  return std::string(DirectoryPart({path, static_cast<size_t>(length)}));
}
