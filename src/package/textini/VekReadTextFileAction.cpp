#include "textini/VekReadTextFileAction.h"

#include <algorithm>
#include <new>

#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/OpenFile.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kEvent = "OnReadLine";

constexpr std::string_view kAliases[] = {
    "[Read Text File]",
    "FileName=File Name",
    "VekVariable=Variable",
    "PutContentsInVar=Put File Contents in Variable",
};

constexpr std::string_view kHelp[] = {
    "FileName=Name of file to read",
    "VekVariable=Variable to hold contents of file",
    "PutContentsInVar=Put the contents of the file into a variable",
};

size_t CountOf(std::string_view text, char c) { return static_cast<size_t>(std::ranges::count(text, c)); }

SysResult ReadAll(OpenFile& file, std::string& contents) {
  uint64_t size = 0;
  if (const SysResult told = file.GetSize(size); !told) return told;
  try {
    contents.resize(static_cast<size_t>(size));
  } catch (const std::exception&) {
    return SysResult::Failure(Win32Error::NotEnoughMemory);
  }
  size_t filled = 0, count = 0;
  do {
    const SysResult read = file.Read({contents.data() + filled, contents.size() - filled}, count);
    if (!read) return read;
    filled += count;
  } while (count != 0 && filled < contents.size());
  contents.resize(filled);
  return {};
}

}  // namespace

std::string EscapeReferences(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size() + CountOf(text, '%') + CountOf(text, '$'));
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' || text.substr(i, 2) == "$(") escaped += text[i];
    escaped += text[i];
  }
  return escaped;
}

const ActionClass TCustomVekReadTextFileAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekReadTextFileAction",
    .actionName = "Read Text File",
    .helpTopicID = 3260,
    .quickHelpFilename = "Plugins\\ReadTextFile.html",
    .aliases = kAliases,
    .help = kHelp,
};

TCustomVekReadTextFileAction::TCustomVekReadTextFileAction(IVekActionHost& host) : TVekAction(host) {
  AddScript(kEvent);
}

void TCustomVekReadTextFileAction::InitialiseScriptParams(IVekActionScript& script) {
  TVekAction::InitialiseScriptParams(script);
  if (script.Name() != kEvent) return;
  script.Params().AddParameter("Action", ScriptParamKind::In);
  script.Params().AddParameter("LineText", ScriptParamKind::InOut);
}

bool TCustomVekReadTextFileAction::Validate(IVekActionValidationError& errors) {
  if (!FileName.empty()) return true;
  errors.AddError("File Name", "Filename has not been set");
  return false;
}

bool TCustomVekReadTextFileAction::Execute() {
  std::string fileName;
  if (!TryExpandExpression("FileName", FileName, fileName, true)) return false;
  if (!GetPlatform().entries->FileExists(fileName)) {
    SendMessage("ERROR - File does not exists: " + fileName);
    return false;
  }

  SendMessage("Reading file...");
  std::unique_ptr<OpenFile> file;  // held until the end: no script changes what it is about to see
  std::string contents;
  SysResult read = GetPlatform().contents->Open(fileName, OpenMode::Read, ShareMode::DenyWrite, file);
  if (read) read = ReadAll(*file, contents);
  if (read && !VekVariable.empty() && PutContentsInVar) read = StoreContents(contents);
  if (!read) {
    SendMessage("File read failed: " + fileName + ": " + SysErrorMessage(read.code));
    return false;
  }
  if (HasScript(kEvent) && !RunLines(contents)) return false;
  SendMessage("Done.");
  return true;
}

/// Fails when there is no memory for the variable beside the contents.
SysResult TCustomVekReadTextFileAction::StoreContents(const std::string& contents) const try {
  if (EscapeVariables) {
    SendMessage("Escaping variables...");
    SetVariable(VekVariable, EscapeReferences(contents));
  } else {
    SetVariable(VekVariable, contents);
  }
  return {};
} catch (const std::bad_alloc&) {
  return SysResult::Failure(Win32Error::NotEnoughMemory);
}

/// What a script leaves behind, a failure too, does not matter; a stop ends the lines.
bool TCustomVekReadTextFileAction::RunLines(std::string_view contents) {
  for (std::string_view line; TakeLine(contents, line);) {
    if (StopSignalled()) return false;
    RunScript(kEvent, {{"LineText", std::string(line)}});
  }
  return true;
}
