#include "process/VekRobocopyOptions.h"

#include "coreapi/Vekservices.h"
#include "coreapi/Vekutils.h"
#include "platform/Platform.h"
#include "platform/Registry.h"

namespace {

constexpr std::string_view kLocation = "Location";

// The question mark is part of the key's name.
constexpr std::string_view kSearchedKey = "software\\?";

}  // namespace

void TVekRobocopyOptions::SetRobocopyPath(std::string_view value) {
  if (value == robocopyPath_) return;
  robocopyPath_ = value;
  SetModified();
}

void TVekRobocopyOptions::LoadOptions(const IVekOptionsReader& reader) {
  TVekOptionsObject::LoadOptions(reader);
  robocopyPath_ = reader.ReadString(kLocation);
  if (robocopyPath_.empty()) robocopyPath_ = TryToFindRobocopyPath();
  if (robocopyPath_.empty()) robocopyPath_ = reader.SuggestedString(kLocation);
}

void TVekRobocopyOptions::SaveOptions(IVekOptionsWriter& writer) const {
  TVekOptionsObject::SaveOptions(writer);
  writer.WriteString(kLocation, robocopyPath_);
}

std::string TVekRobocopyOptions::TryToFindRobocopyPath() const {
  std::unique_ptr<RegistryKey> key;
  RegistryValue path;
  const SysResult opened = platform_.registry->Open(RegistryRoot::LocalMachine, kSearchedKey,
                                                    RegistryAccess::Read, RegistryOpen::Existing, key);
  if (!opened || !key->Read("path", path)) return {};
  return AsFolder(platform_, path.data) + "robocopy.exe";
}

std::string StoredRobocopyPath() {
  const auto* options = dynamic_cast<const IVekRobocopyOptions*>(
      VekOptionsServices().FindOptions(TVekRobocopyOptions::kCategory, TVekRobocopyOptions::kName));
  return options ? options->RobocopyPath() : std::string();
}
