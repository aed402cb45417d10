#include "interaction/VekExtractFileVerInfoAction.h"

#include <iterator>
#include <memory>

#include "base/WindowsPath.h"
#include "interaction/Vekversionresource.h"
#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kAliases[] = {
    "[Extract Version Info]",
    "FileName=File Name",
    "FileVersionVar=File Version Variable",
    "ProductVersionVar=Product Version Variable",
    "MajorVar=Major Number Variable",
    "MinorVar=Minor Number Variable",
    "ReleaseVar=Release Number Variable",
    "BuildVar=Build Number Variable",
    "StringNames=Names of Version Entries",
    "StringVars=Variables for Version Entries",
    "FailIfNotFound=Fail if not Found",
};

constexpr std::string_view kHelp[] = {
    "FileName=The Windows program or library, for 32 or 64 bit",
    "FileVersionVar=The variable that receives the version of the file, such as 1.2.3.4",
    "ProductVersionVar=The variable that receives the version of the product",
    "MajorVar=The variable that receives the first number of the file's version",
    "MinorVar=The variable that receives the second number",
    "ReleaseVar=The variable that receives the third number",
    "BuildVar=The variable that receives the fourth number",
    "StringNames=Further entries such as CompanyName, one a line",
    "StringVars=The variables that receive them, in the same order",
    "FailIfNotFound=Fail when the file has no version or lacks an entry; otherwise the variables get the "
    "empty text or 0",
};

/// Reads from the file where it stands open.
std::string ReadAt(OpenFile& file, uint64_t position, size_t count) {
  std::string bytes(count, '\0');
  size_t filled = 0;
  if (!file.Seek(position)) return {};
  for (size_t read = 0; filled < count; filled += read) {
    if (!file.Read(std::span(bytes).subspan(filled), read) || read == 0) break;
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace

const ActionClass TCustomVekExtractFileVerInfoAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekExtractFileVerInfoAction",
    .actionName = "Extract Version Info",
    .helpTopicID = 3280,
    .quickHelpFilename = "Plugins\\ExtractVersionInfo.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomVekExtractFileVerInfoAction::Validate(IVekActionValidationError& errors) {
  if (!FileName.empty()) return true;
  errors.AddError("File Name", "Filename has not been set");
  return false;
}

bool TCustomVekExtractFileVerInfoAction::Execute() {
  std::string path;
  Targets targets;
  std::optional<VersionResource> resource;
  if (!TryExpandExpression("File Name", FileName, path, true) || !ExpandTargets(targets)) return false;
  if (!ReadResource(path, resource)) return false;
  if (resource) return StoreResource(targets, path, *resource);
  SendMessage("No version information in " + path);
  if (!FailIfNotFound) StoreNothing(targets);
  return !FailIfNotFound;
}

bool TCustomVekExtractFileVerInfoAction::ExpandTargets(Targets& targets) const {
  return ExpandOptionalVariable(FileVersionVar, targets.fileVersion) &&
         ExpandOptionalVariable(ProductVersionVar, targets.productVersion) &&
         ExpandOptionalVariable(MajorVar, targets.numbers[0]) &&
         ExpandOptionalVariable(MinorVar, targets.numbers[1]) &&
         ExpandOptionalVariable(ReleaseVar, targets.numbers[2]) &&
         ExpandOptionalVariable(BuildVar, targets.numbers[3]) && ExpandStrings(targets);
}

bool TCustomVekExtractFileVerInfoAction::ExpandStrings(Targets& targets) const {
  for (size_t i = 0; i < StringNames.size(); ++i) {
    if (Trim(StringNames[i]).empty()) continue;
    std::string& name = targets.names.emplace_back();
    std::string& variable = targets.strings.emplace_back();
    if (!TryExpandExpression("Names of Version Entries", StringNames[i], name, true)) return false;
    if (i < StringVars.size() && !ExpandOptionalVariable(StringVars[i], variable)) return false;
  }
  return true;
}

/// False when there is no such file or it cannot be opened, which has then been said.
bool TCustomVekExtractFileVerInfoAction::ReadResource(const std::string& path,
                                                      std::optional<VersionResource>& resource) const {
  if (!GetPlatform().entries->FileExists(path)) {
    SendMessage("ERROR - File missing: " + path);
    return false;
  }
  std::unique_ptr<OpenFile> file;
  const SysResult opened = GetPlatform().contents->Open(path, OpenMode::Read, ShareMode::DenyNone, file);
  if (!opened) {
    SendMessage("Error reading " + path + " : " + SysErrorMessage(opened.code));
    return false;
  }
  resource = ReadVersionResource(
      [&file](uint64_t position, size_t count) { return ReadAt(*file, position, count); });
  return true;
}

void TCustomVekExtractFileVerInfoAction::StoreNothing(const Targets& targets) const {
  Store(targets.fileVersion, std::string());
  Store(targets.productVersion, std::string());
  for (const std::string& number : targets.numbers) Store(number, int64_t{0});
  for (const std::string& variable : targets.strings) Store(variable, std::string());
}

bool TCustomVekExtractFileVerInfoAction::StoreResource(const Targets& targets, const std::string& path,
                                                       const VersionResource& resource) const {
  const std::string version = VersionText(resource.fileVersion);
  SendMessage("File version of " + std::string(NamePart(path)) + " is " + version);
  Store(targets.fileVersion, version);
  Store(targets.productVersion, VersionText(resource.productVersion));
  for (size_t i = 0; i < std::size(targets.numbers); ++i)
    Store(targets.numbers[i], int64_t{resource.fileVersion[i]});
  bool complete = true;
  for (size_t i = 0; i < targets.names.size(); ++i) {
    const std::string* text = resource.Find(targets.names[i]);
    if (!text) SendMessage("No version entry " + targets.names[i] + " in " + path);
    complete = complete && text;
    if (text || !FailIfNotFound) Store(targets.strings[i], text ? *text : std::string());
  }
  return complete || !FailIfNotFound;
}
