#include "process/VekXcopyAction.h"

#include <cmath>

#include "base/WindowsPath.h"
#include "coreapi/Vekutils.h"
#include "platform/Clock.h"
#include "platform/Contents.h"
#include "platform/Platform.h"
#include "process/VekSwitches.h"

namespace {

using TXCopy = TCustomXCopyAction;

constexpr Switch<TXCopy> kSwitches[] = {
    {&TXCopy::CopyHiddenAndSys, "/H"},   {&TXCopy::OverwriteReadOnly, "/R"},
    {&TXCopy::CopyAttributes, "/K"},     {&TXCopy::OnlyFilesThatAlreadyExist, "/U"},
    {&TXCopy::CopyNetworkedFiles, "/Z"}, {&TXCopy::Verify, "/V"},
    {&TXCopy::IgnoreErrors, "/C"},       {&TXCopy::CopyNewerFiles, "/D"},
};

constexpr Switch<TXCopy> kSwitchesBehindTheDate[] = {
    {&TXCopy::CopyUsingShortNames, "/N"},
    {&TXCopy::CopyFileAuditSettings, "/X"},
    {&TXCopy::CopyEncryptedIfNotSupportedInDest, "/G"},
    {&TXCopy::CopyOwnershipAndACL, "/O"},
};

// By value; what is empty adds nothing.
constexpr std::string_view kLogModes[] = {"", "/Q", "/F"};
constexpr std::string_view kModes[] = {"", "/S", "/L", "/T"};

/// "3-5-2007" for the fifth of March.
std::string MonthDayYear(TDateTime date) {
  const std::string iso = ToIso8601(date);
  const auto number = [&iso](size_t at) { return std::to_string(std::stoi(iso.substr(at, 2))); };
  return number(5) + '-' + number(8) + '-' + iso.substr(0, 4);
}

}  // namespace

const ActionClass TCustomXCopyAction::kClass{.inherited = &TVekExecuteAbstractAction::kClass,
                                             .className = "TCustomXCopyAction",
                                             .actionName = "XCopy",
                                             .helpTopicID = 3240,
                                             .quickHelpFilename = "Plugins\\XCopy.html"};

TCustomXCopyAction::TCustomXCopyAction(IVekActionHost& host)
    : TVekExecuteAbstractAction(host), ChangedAfterDate{std::trunc(GetPlatform().clock->LocalNow().days)} {}

bool TCustomXCopyAction::Validate(IVekActionValidationError& errors) {
  if (Source.empty()) errors.AddError("Source", "A source must be specified");
  if (Destination.empty()) errors.AddError("Destination", "A destination must be specified");
  return !Source.empty() && !Destination.empty();
}

std::string TCustomXCopyAction::GetExecutable() {
  return AsFolder(GetPlatform(), GetSysDirectory(GetPlatform())) + "xcopy.exe";
}

std::string TCustomXCopyAction::GetStartingDir() {
  std::string expanded;
  TryExpandExpression("Source", Source, expanded, false);
  return std::string(FolderPart(expanded));
}

bool TCustomXCopyAction::GetCommandLine(ICommandLineBuilder& builder) {
  builder.Reset(0);
  std::string expanded;
  if (!TryExpandExpression("Source", Source, expanded, true)) return false;
  builder.AddArgument("", expanded, ArgumentQuoting::WhenNeeded);
  if (!TryExpandExpression("Destination", Destination, expanded, true)) return false;
  builder.AddArgument("", AsFolder(GetPlatform(), expanded), ArgumentQuoting::WhenNeeded);
  AddSwitch(builder, "/Y");  // overwrites without asking
  AddSwitch(builder, "/I");  // the destination is a folder
  if (!AddExcludedFiles(builder)) return false;
  AddOptions(builder);
  SendMessage("Calling xcopy using command line: " + builder.CommandLineText());
  return true;
}

bool TCustomXCopyAction::AddExcludedFiles(ICommandLineBuilder& builder) const {
  std::string list, expanded;
  for (size_t i = 0; i < ExcludeFiles.size(); ++i) {
    const std::string title = "Excluded file " + std::to_string(i);
    if (!TryExpandExpression(title, ExcludeFiles[i], expanded, false)) return false;
    if (!expanded.empty()) list += expanded + "\r\n";
  }
  if (list.empty()) return true;
  if (list.find_first_of("*?") != std::string::npos) {
    SendMessage(
        "Warning: Excluded file list contains wildcard characters. XCopy exclude list does not support "
        "wildcards, substring matching only.");
  }
  const std::string fileName = GetTemporaryFileName(GetPlatform(), "xcp");
  if (const SysResult written = GetPlatform().contents->Replace(fileName, list); !written) {
    GetActionContext().ReportError("Cannot write the list of excluded files " + fileName + ": " +
                                   SysErrorMessage(written.code));
    return false;
  }
  builder.AddArgument("/EXCLUDE:", fileName, ArgumentQuoting::AsItStands);
  return true;
}

void TCustomXCopyAction::AddOptions(ICommandLineBuilder& builder) const {
  const std::string_view modes[] = {kLogModes[static_cast<size_t>(XCopyLogMode)],
                                    kModes[static_cast<size_t>(XCopyMode)],
                                    !OnlyArchiveFiles   ? ""
                                    : TurnOffArchiveBit ? "/M"
                                                        : "/A"};
  for (const std::string_view mode : modes) {
    if (!mode.empty()) AddSwitch(builder, mode);
  }
  AddSwitches(builder, *this, kSwitches);
  if (CopyFilesChnagedAfter) {
    builder.AddArgument("/D:", MonthDayYear(ChangedAfterDate), ArgumentQuoting::AsItStands);
  }
  AddSwitches(builder, *this, kSwitchesBehindTheDate);
}
