#include "fileops/VekFileCompare.h"

#include "checksum/HashAlgMD5_U.h"
#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Locale.h"
#include "platform/Platform.h"

const ActionClass TCustomVekFileCompareAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekFileCompareAction",
    .actionName = "File Compare",
    .helpTopicID = 6090,
    .quickHelpFilename = "Plugins\\FileCompare.html",
    .raises = true,  // a file that cannot be hashed
};

bool TCustomVekFileCompareAction::Validate(IVekActionValidationError& errors) {
  if (!FileA.empty() && !FileB.empty()) return true;
  errors.AddError("File Name", "Missing file name.");
  return false;
}

void TCustomVekFileCompareAction::GetNextActionSource(bool failed, TVekNextAction& next) {
  TVekAction::GetNextActionSource(failed, next);
  if (!Fail && !outcome_) next = TVekNextAction::naSkipChildren;
}

bool TCustomVekFileCompareAction::Execute() {
  outcome_ = false;
  Files files;
  if (!FindFiles(files)) return false;
  SendMessage("Comparing file " + files.a);
  SendMessage("with file " + files.b);
  if (!CompareDate && !CompareSize && !CompareMD5) {
    SendMessage("Error : Nothing to compare files by! Choose one or more of date, size or checksum.");
    return false;
  }

  bool different = false;
  if (CompareDate && !CompareDates(files, different)) return false;
  if (CompareSize && !CompareSizes(files, different)) return false;
  if (CompareMD5 && !different) CompareContents(files, different);
  if (!different) SendMessage("No differences found.");
  const bool outcome = different != Inverted;
  if (Fail) return outcome;
  outcome_ = outcome;
  return true;
}

bool TCustomVekFileCompareAction::FindFiles(Files& files) {
  if (!TryExpandExpression("First File", FileA, files.a, true)) return false;
  if (!TryExpandExpression("Second File", FileB, files.b, true)) return false;
  for (const std::string* name : {&files.a, &files.b}) {
    if (GetPlatform().entries->FileExists(*name)) continue;
    SendMessage("File Doesn't Exist : " + *name);
    return false;
  }
  return true;
}

/// False when the dates cannot be told.
bool TCustomVekFileCompareAction::CompareDates(const Files& files, bool& different) {
  TDateTime a, b;
  const auto read = [](TDateTime& date) {
    return [&date](OpenFile& file) { return file.GetLastWrite(date); };
  };
  if (!Ask(files.a, ShareMode::DenyNone, "date", read(a))) return false;
  if (!Ask(files.b, ShareMode::DenyNone, "date", read(b))) return false;
  different = a != b;
  // Without the time: of two files written on one day the same date is shown twice.
  Locale& locale = *GetPlatform().locale;
  SendMessage(different
                  ? "Files have different dates (" + locale.ShortDate(a) + " vs " + locale.ShortDate(b) + ")"
                  : "Files have the same date.");
  return true;
}

/// False when the sizes cannot be told. Files that differ by a multiple of 4 GiB have the same size.
bool TCustomVekFileCompareAction::CompareSizes(const Files& files, bool& different) {
  uint64_t sizeA = 0, sizeB = 0;
  const auto read = [](uint64_t& size) { return [&size](OpenFile& file) { return file.GetSize(size); }; };
  if (!Ask(files.a, ShareMode::DenyAll, "size", read(sizeA))) return false;
  if (!Ask(files.b, ShareMode::DenyAll, "size", read(sizeB))) return false;
  const auto a = static_cast<uint32_t>(sizeA), b = static_cast<uint32_t>(sizeB);
  if (a != b) different = true;
  SendMessage(a != b ? "Files are different sizes (" + std::to_string(a) + " vs " + std::to_string(b) + ")"
                     : "Files are of identical size.");
  return true;
}

void TCustomVekFileCompareAction::CompareContents(const Files& files, bool& different) {
  const THashAlgMD5 algorithm(GetPlatform(), [this] { return StopSignalled(); });
  const auto hash = [&algorithm](const std::string& fileName) {
    THashArray digest;
    if (!algorithm.HashFile(fileName, digest)) throw EVekError("Hash of file " + fileName + " failed");
    return algorithm.HashToDisplay(digest);
  };
  const std::string a = hash(files.a);
  different = !SameText(a, hash(files.b));
  SendMessage(different ? "Files have different MD5 checksums." : "Files have identical MD5 checksums.");
}

/// Opens a file to ask one thing of it; a failure is logged.
bool TCustomVekFileCompareAction::Ask(const std::string& fileName, ShareMode share, const char* what,
                                      const std::function<SysResult(OpenFile&)>& question) {
  std::unique_ptr<OpenFile> file;
  SysResult result = GetPlatform().contents->Open(fileName, OpenMode::Read, share, file);
  if (result) result = question(*file);
  if (!result) {
    SendMessage(std::string("Error reading ") + what + " of " + fileName + " : " +
                SysErrorMessage(result.code));
  }
  return result.ok;
}
