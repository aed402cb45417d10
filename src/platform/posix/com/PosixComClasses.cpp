#include "platform/posix/com/PosixComClasses.h"

#include "base/Text.h"

namespace {

// Where classes are described; what stands first hides what stands further down.
constexpr struct {
  uint32_t root;
  std::string_view prefix;
} kPlaces[] = {
    {RegistryRoot::CurrentUser, "Software\\Classes\\"},
    {RegistryRoot::LocalMachine, "Software\\Classes\\"},
    {RegistryRoot::ClassesRoot, ""},
};

}  // namespace

bool PosixComClasses::CanCreate(std::string_view classId) {
  const std::string key = "CLSID\\" + std::string(classId);
  return NamesFile(DefaultValue(key + "\\InprocServer32")) ||
         NamesFile(DefaultValue(key + "\\LocalServer32"));
}

std::optional<std::string> PosixComClasses::ClassIdOf(std::string_view progId) {
  std::string classId = DefaultValue(std::string(progId) + "\\CLSID");
  if (classId.empty()) return {};
  return classId;
}

/// Empty where there is none, or one that is no text.
std::string PosixComClasses::DefaultValue(const std::string& key) {
  for (const auto& place : kPlaces) {
    std::unique_ptr<RegistryKey> opened;
    RegistryValue value;
    const SysResult found = registry_.Open(place.root, std::string(place.prefix) + key, RegistryAccess::Read,
                                           RegistryOpen::Existing, opened);
    if (!found || !opened->Read("", value)) continue;
    if (value.type == RegistryType::String || value.type == RegistryType::ExpandString) return value.data;
  }
  return {};
}

/// A server may be given as a command line: a file in quotes or up to the first blank, then parameters.
bool PosixComClasses::NamesFile(std::string_view server) {
  server = Trim(server);
  if (entries_.FileExists(server)) return true;
  const bool inQuotes = server.starts_with('"');
  if (inQuotes) server.remove_prefix(1);
  return entries_.FileExists(server.substr(0, server.find(inQuotes ? '"' : ' ')));
}
