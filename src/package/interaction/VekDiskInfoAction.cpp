#include "interaction/VekDiskInfoAction.h"

#include <charconv>

#include "base/WindowsPath.h"
#include "platform/Disk.h"
#include "platform/Environment.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kAliases[] = {
    "[Get Disk Free Space]",
    "Drive=Drive",
    "SpaceUnit=Unit",
    "FreeSpaceVar=Free Space Variable",
    "TotalSpaceVar=Total Space Variable",
    "FailIfLess=Fail if Less",
    "MinimumFree=Minimum Free Space",
};

constexpr std::string_view kHelp[] = {
    "Drive=A drive letter, or any file or folder on the disk; the current folder when this is blank",
    "SpaceUnit=The unit of all numbers; they are rounded down",
    "FreeSpaceVar=The variable that receives the space that you may still use",
    "TotalSpaceVar=The variable that receives the size of the disk",
    "FailIfLess=Fail when there is less free space than the minimum",
    "MinimumFree=The least free space, in the unit",
};

struct Unit {
  std::string_view name;
  uint64_t bytes;
};
constexpr Unit kUnits[] = {{"bytes", 1}, {"KB", 1 << 10}, {"MB", 1 << 20}, {"GB", 1 << 30}};

/// A letter means the drive, whatever folder has such a name.
std::string RootOf(const std::string& drive) {
  if (drive.size() == 1 && NamesDrive(drive + ':')) return drive + ":\\";
  return drive.size() == 2 && NamesDrive(drive) ? drive + '\\' : drive;
}

}  // namespace

const ActionClass TCustomDiskInfoAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomDiskInfoAction",
    .actionName = "Get Disk Free Space",
    .helpTopicID = 2430,
    .quickHelpFilename = "Plugins\\DiskFreeSpace.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomDiskInfoAction::Validate(IVekActionValidationError& errors) {
  if (!FailIfLess || !MinimumFree.empty()) return true;
  errors.AddError("Minimum Free Space", "The minimum free space has not been set");
  return false;
}

bool TCustomDiskInfoAction::Execute() {
  const Unit& unit = kUnits[static_cast<size_t>(SpaceUnit)];
  std::string drive, freeVariable, totalVariable, minimum;
  double least = 0;
  if (!TryExpandExpression("Drive", Drive, drive, false) ||
      !ExpandOptionalVariable(FreeSpaceVar, freeVariable) ||
      !ExpandOptionalVariable(TotalSpaceVar, totalVariable) || !ExpandMinimum(minimum, least)) {
    return false;
  }
  drive = Trim(drive).empty() ? GetPlatform().environment->CurrentFolder() : Trim(drive);
  DiskSpace space;
  if (!ReadSpace(drive, space)) return false;

  const uint64_t free = space.free / unit.bytes, total = space.total / unit.bytes;
  SendMessage("Free space on " + drive + " : " + std::to_string(free) + " of " + std::to_string(total) + ' ' +
              std::string(unit.name));
  Store(freeVariable, static_cast<int64_t>(free));
  Store(totalVariable, static_cast<int64_t>(total));
  if (!FailIfLess || static_cast<double>(space.free) / static_cast<double>(unit.bytes) >= least) return true;
  SendMessage("Not enough free space, needed : " + minimum + ' ' + std::string(unit.name));
  return false;
}

/// The minimum in the unit, as text and as a number; 0 where none is asked for.
bool TCustomDiskInfoAction::ExpandMinimum(std::string& text, double& least) const {
  if (!FailIfLess) return true;
  if (!TryExpandExpression("Minimum Free Space", MinimumFree, text, true)) return false;
  text = Trim(text);
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, least, std::chars_format::fixed);
  if (error == std::errc() && stop == end && least >= 0) return true;
  SendMessage("Minimum Free Space: \"" + text + "\" is no number");
  return false;
}

bool TCustomDiskInfoAction::ReadSpace(const std::string& drive, DiskSpace& space) const {
  const SysResult read = GetPlatform().disk->GetSpace(RootOf(drive), space);
  if (!read) SendMessage("Error reading free space of " + drive + " : " + SysErrorMessage(read.code));
  return read.ok;
}
