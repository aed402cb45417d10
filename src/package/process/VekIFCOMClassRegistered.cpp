#include "process/VekIFCOMClassRegistered.h"

#include "platform/ComClasses.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kGuidForm = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";

bool IsGuid(std::string_view text) {
  if (text.size() != kGuidForm.size()) return false;
  for (size_t i = 0; i < text.size(); ++i) {
    const bool isHex = std::string_view("0123456789abcdefABCDEF").find(text[i]) != std::string_view::npos;
    if (kGuidForm[i] == 'x' ? !isHex : text[i] != kGuidForm[i]) return false;
  }
  return true;
}

}  // namespace

const ActionClass TCustomVekIfCOMClassRegistered::kClass{.inherited = &TVekAction::kClass,
                                                         .className = "TCustomVekIfCOMClassRegistered",
                                                         .actionName = "If COM Class Registered",
                                                         .helpTopicID = 5080,
                                                         .quickHelpFilename = "Plugins\\IfCOMReg.html"};

void TCustomVekIfCOMClassRegistered::GetNextActionSource(bool failed, TVekNextAction& next) {
  if (!failed && !TestResult()) next = TVekNextAction::naSkipGuarded;
}

bool TCustomVekIfCOMClassRegistered::Execute() {
  registered_ = false;
  if (!(UseProgID ? TestProgId() : TestClassId())) return false;
  if (FailIfNotRegistered) return TestResult();
  if (!TestResult()) SetActionStatus(TVekActionStatus::asConditionNotMet);
  return true;
}

bool TCustomVekIfCOMClassRegistered::TestProgId() {
  std::string expanded;
  if (!TryExpandExpression("Programmatic ID", ProgID, expanded, true)) {
    SendMessage("Programmatic ID is invalid.");
    return false;
  }
  ComClasses& classes = *GetPlatform().comClasses;
  const auto classId = classes.ClassIdOf(ProgID);
  Conclude(expanded, classId && classes.CanCreate(*classId));
  return true;
}

bool TCustomVekIfCOMClassRegistered::TestClassId() {
  std::string text;
  if (!TryExpandExpression("Class ID (GUID)", CLSID, text, true)) {
    SendMessage("Class ID (GUID) is invalid.");
    return false;
  }
  if (!text.starts_with('{') && !text.ends_with('}')) text = '{' + text + '}';
  if (!IsGuid(text)) {
    SendMessage("Class ID " + text + " is not a valid GUID.");
    return false;
  }
  Conclude(text, GetPlatform().comClasses->CanCreate(text));
  return true;
}

void TCustomVekIfCOMClassRegistered::Conclude(const std::string& identifier, bool registered) {
  registered_ = registered;
  SendMessage("COM Class " + identifier + (registered ? " is registered." : " is not registered."));
}
