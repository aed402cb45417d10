#include "fileops/VekConcatFilesAction.h"

#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Platform.h"

const ActionClass TCustomConcatAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomConcatAction",
    .actionName = "Concatenate Files",
    .helpTopicID = 1610,
    .quickHelpFilename = "Plugins\\ConcatenateFiles.html",
};

bool TCustomConcatAction::Validate(IVekActionValidationError& errors) {
  if (SourceFile1.empty()) errors.AddError("Source File 1", "Source File 1 has not been set");
  if (DestinationFile.empty()) errors.AddError("Destination File", "The Destination file has not been set");
  return !SourceFile1.empty() && !DestinationFile.empty();
}

bool TCustomConcatAction::Execute() {
  Names names;
  if (!ExpandNames(names)) return false;
  const bool exists = GetPlatform().entries->FileExists(names.destination);
  if (exists && DestExistsAction == TDestExistsAct::FailIfExists) {
    SendMessage("Destination exists.");
    return false;
  }
  // Held until the sources are open, so that none of them is the file that is replaced.
  std::unique_ptr<OpenFile> replaced;
  if (exists && DestExistsAction == TDestExistsAct::OverwriteIfExists &&
      !GetPlatform().contents->Open(names.destination, OpenMode::Modify, ShareMode::DenyAll, replaced)) {
    SendMessage("Unable to overwrite destination file : " + names.destination);
    return false;
  }

  std::vector<Source> sources;
  if (!OpenSources(names, sources)) return false;
  replaced.reset();
  const bool appends = exists && DestExistsAction == TDestExistsAct::AppendIfExists;
  if (!(appends ? Append(names.destination, sources) : Write(names.destination, sources))) return false;
  SendMessage("Concatenation done.");
  return true;
}

bool TCustomConcatAction::ExpandNames(Names& names) {
  if (!ExpandName("Source 1", "Source filename", SourceFile1, names.source1)) return false;
  if (names.source1.empty()) {
    SendMessage("Source 1 filename is blank.");
    return false;
  }
  if (!FindSource("Source 1", names.source1)) return false;

  if (!ExpandName("Source 2", "Source filename", SourceFile2, names.source2)) return false;
  if (names.source2.empty() && DestExistsAction != TDestExistsAct::AppendIfExists) {
    SendMessage("Source 2 filename is blank. It can only be blank if appending to an existing file.");
    return false;
  }
  if (!names.source2.empty() && !FindSource("Source 2", names.source2)) return false;

  if (!ExpandName("Destination", "Destination filename", DestinationFile, names.destination)) return false;
  if (names.destination.empty()) SendMessage("Destination filename is blank.");
  return !names.destination.empty();
}

bool TCustomConcatAction::ExpandName(std::string_view which, std::string_view title,
                                     const std::string& property, std::string& name) {
  if (TryExpandExpression(title, property, name, false)) return true;
  SendMessage(std::string("Error expanding ").append(which).append(" filename"));
  return false;
}

bool TCustomConcatAction::FindSource(std::string_view which, const std::string& name) {
  const bool exists = GetPlatform().entries->FileExists(name);
  if (!exists) SendMessage(std::string(which).append(" file does not exist : ").append(name));
  return exists;
}

bool TCustomConcatAction::OpenSources(const Names& names, std::vector<Source>& sources) {
  for (const std::string* name : {&names.source1, &names.source2}) {
    if (Trim(*name).empty()) continue;
    Source& source = sources.emplace_back(*name);
    const SysResult opened =
        GetPlatform().contents->Open(*name, OpenMode::Read, ShareMode::DenyWrite, source.file);
    if (!opened) return Failed("Failed to open " + *name, opened.code);
  }
  return true;
}

/// What was appended before a failure is cut off again.
bool TCustomConcatAction::Append(const std::string& destination, std::vector<Source>& sources) {
  std::unique_ptr<OpenFile> file;
  uint64_t size = 0;
  SysResult opened = GetPlatform().contents->Open(destination, OpenMode::Modify, ShareMode::DenyAll, file);
  if (opened) opened = file->GetSize(size);
  if (opened) opened = file->Seek(size);
  if (!opened) return Failed("Failed to open " + destination, opened.code);

  if (CopyAll(sources, destination, *file)) return true;
  const SysResult cut = file->SetSize(size);
  return cut ? false : Failed("Failed to cut off what was appended to " + destination, cut.code);
}

/// The file has its name only when it is whole.
bool TCustomConcatAction::Write(const std::string& destination, std::vector<Source>& sources) {
  std::unique_ptr<NewContents> contents;
  const SysResult created = GetPlatform().contents->Rewrite(destination, contents);
  if (!created) return Failed("Failed to create " + destination, created.code);
  if (!CopyAll(sources, destination, contents->File())) return false;
  const SysResult committed = contents->Commit();
  return committed ? true : Failed("Failed to create " + destination, committed.code);
}

bool TCustomConcatAction::CopyAll(std::vector<Source>& sources, const std::string& destination,
                                  OpenFile& target) {
  constexpr uint64_t kStep = uint64_t{16} << 20;  // between two looks at whether the build is to stop
  for (size_t i = 0; i < sources.size(); ++i) {
    uint64_t total = 0;
    for (uint64_t count = 1; count != 0; total += count) {
      if (StopSignalled()) return false;
      const SysResult copied = target.CopyFrom(*sources[i].file, kStep, count);
      if (!copied) return Failed("Failed to copy " + sources[i].name + " to " + destination, copied.code);
    }
    SendMessage("Copied " + std::to_string(total) + " bytes from source file " + std::to_string(i + 1));
  }
  return true;
}

bool TCustomConcatAction::Failed(const std::string& what, Win32Error code) const {
  SendMessage(what);
  SendMessage("Error: " + SysErrorMessage(code));
  return false;
}
