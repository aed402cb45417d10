#include "process/VekShellExecute.h"

#include "coreapi/Vekutils.h"
#include "platform/Entries.h"
#include "platform/Platform.h"
#include "platform/Shell.h"

namespace {

// A minute in all, in steps after each of which a stop is noticed.
constexpr uint32_t kStepMilliseconds = 100;
constexpr int kSteps = 600;

}  // namespace

const ActionClass TCustomVekShellExecute::kClass{.inherited = &TVekAction::kClass,
                                                 .className = "TCustomVekShellExecute",
                                                 .actionName = "Shell Execute",
                                                 .helpTopicID = 3200,
                                                 .quickHelpFilename = "Plugins\\ShellExecute.html"};

void TCustomVekShellExecute::SetFileSpec(const std::string& value) {
  if (value.find_first_of("*?") != std::string::npos) {
    VekShowMessage(
        "Wildcards are not allowed.  Use with the FileIterator action to perform action on multiple files.");
    return;
  }
  fileSpec_ = value;
}

bool TCustomVekShellExecute::Validate(IVekActionValidationError& errors) {
  if (!fileSpec_.empty()) return true;
  errors.AddError("Filename", "A filename has not been specified");
  return false;
}

bool TCustomVekShellExecute::Execute() {
  ShellRequest request{.verb = Action};
  if (!ExpandRequest(request)) return false;
  if (!GetPlatform().entries->FileExists(request.file)) {
    SendMessage("File does not exist: " + fileSpec_);
    return false;
  }
  std::unique_ptr<RunningProcess> process;
  if (const SysResult result = GetPlatform().shell->Execute(request, process); !result) {
    SendMessage("ShellExecute Failed with error: " + SysErrorMessage(result.code));
    return false;
  }
  // A program that runs already may have taken the document over; then there is nothing to wait for.
  return !WaitForCompletion || !process || WaitFor(*process, request.file);
}

bool TCustomVekShellExecute::ExpandRequest(ShellRequest& request) const {
  return AttemptOrReport("Unable to Execute file : ", request.file, "--> ", [&] {
    request.file = ExpandExpression(fileSpec_, true);
    request.parameters = ExpandExpression(Parameters, true);
    request.folder = ExpandExpression(WorkingDir, true);
  });
}

bool TCustomVekShellExecute::WaitFor(RunningProcess& process, const std::string& file) {
  for (int step = 0; step < kSteps; ++step) {
    if (process.EndsWithin(kStepMilliseconds)) return true;
    if (StopSignalled()) return false;
  }
  SendMessage("Timed Out waiting to " + Action + " " + file);
  return false;
}
