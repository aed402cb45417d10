#include "iterators/VekReadTextFileIteratorAction.h"

#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kHidden[] = {"LineIndex", "LineCount", "VariableName"};

int32_t CountLines(std::string_view text) {
  int32_t count = 0;
  for (std::string_view line; TakeLine(text, line);) ++count;
  return count;
}

}  // namespace

const ActionClass TCustomReadTextFileIterator::kClass{
    .inherited = &TVekBaseIterator::kClass,
    .className = "TCustomReadTextFileIterator",
    .actionName = "File Contents Iterator",
    .helpTopicID = 3270,
    .quickHelpFilename = "Plugins\\ReadFileIterator.html",
    .hiddenProperties = kHidden,
};

bool TCustomReadTextFileIterator::Validate(IVekActionValidationError& errors) {
  if (!TextFileName.empty()) return true;
  errors.AddError("Filename", "A filename has not been set");
  return false;
}

void TCustomReadTextFileIterator::BeforeFirstIteration() {
  SendMessage("Reading file...");
  contents_.clear();
  rest_ = {};
  std::string path;
  if (!TryExpandExpression("Filename", TextFileName, path, true)) return;
  if (!GetPlatform().entries->FileExists(path)) return SendMessage("File doesn't exist");
  ReadFile(path);
}

void TCustomReadTextFileIterator::ReadFile(const std::string& path) {
  if (const SysResult read = GetPlatform().contents->ReadWhole(path, contents_); !read) {
    throw EIteratorException("Error while reading file : " + SysErrorMessage(read.code));
  }
  rest_ = contents_;
  SetIterationCount(CountLines(contents_));
  SendMessage("File contains " + std::to_string(GetIterationCount()) + " lines");
}

/// Passes only ever go on to the next line: a loop that is reset begins with reading the file again.
Variant TCustomReadTextFileIterator::GetCurrentValue() {
  std::string_view line;
  TakeLine(rest_, line);
  return std::string(line);
}
