#include "textini/VekWriteToTextFileAction.h"

#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kLineBreak = "\r\n";

constexpr std::string_view kAliases[] = {
    "[Write to Text File]", "NewContent=New content",         "CreateIfNotExists=Create file missing",
    "FileName=Filename",    "WriteToPosition=Write Position",
};

constexpr std::string_view kHelp[] = {
    "NewContent=This text will be written to the file.  Any variables used will be expanded.",
    "CreateIfNotExists=Create the file if it doesn't exist",
    // Hosts see this line, though the property has another name here.
    "NewFileName=The location and name of the file",
    "WriteToPosition=Specify either Start or End to write the new content to",
};

/// Every line, the last one too, gets its break.
std::string TextOf(const StringList& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append(kLineBreak);
  return text;
}

}  // namespace

const ActionClass TCustomVekWriteToTextFileAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekWriteToTextFileAction",
    .actionName = "Write to Text File",
    .helpTopicID = 3230,
    .quickHelpFilename = "Plugins\\WriteToTextFile.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomVekWriteToTextFileAction::Validate(IVekActionValidationError& errors) {
  if (!FileName.empty()) return true;
  errors.AddError("File Name", "New filename has not been set");
  return false;
}

bool TCustomVekWriteToTextFileAction::Execute() {
  std::string fileName;
  if (!TryExpandExpression("FileName", FileName, fileName, true)) return false;
  const bool fileExists = GetPlatform().entries->FileExists(fileName);
  if (!fileExists && !CreateIfNotExists) {
    SendMessage("ERROR - File doesn't exist: " + fileName);
    return false;
  }

  std::string text;
  if (!TryExpandExpression("Content", NewContent, text, false)) return false;
  const SysResult edited = AddToFile(fileName, text);
  SendMessage(edited ? "File updated: " + fileName : "File edit failed: " + SysErrorMessage(edited.code));
  return edited.ok;
}

SysResult TCustomVekWriteToTextFileAction::AddToFile(const std::string& fileName,
                                                     const std::string& text) const {
  // The text is one line more than it holds line breaks, also when it is empty or ends in one.
  const StringList added = SplitLines(std::string(text).append(kLineBreak));
  return GetPlatform().contents->Change(fileName, [&](const std::string& contents, NewText& changed) {
    StringList lines = SplitLines(contents);
    lines.insert(WriteToPosition == TVekWriteToPos::toStart ? lines.begin() : lines.end(), added.begin(),
                 added.end());
    changed.Append(TextOf(lines));
    return true;
  });
}
