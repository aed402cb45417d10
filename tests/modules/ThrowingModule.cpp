#include <memory>
#include <stdexcept>
#include <string>

#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekerrors.h"
#include "vektestmodule_export.h"

namespace {

class TBorderAction final : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;
  const ActionClass& ClassType() const override { return kClass; }

 protected:
  bool Execute() override { throw EVekExpressionError(Name + " cannot be expanded"); }
};

// The address of a class that lies in another module.
const ActionClass TBorderAction::kClass{.inherited = &TVekAction::kClass, .className = "TBorderAction"};

}  // namespace

/// Raises an error of the host packages', or one of the standard library's at design time.
extern "C" VEK_TEST_MODULE_API bool VekRegister(bool designTime) {
  if (designTime) throw std::out_of_range("thrown in the module");
  throw EVekExpressionError("thrown in the module");
}

extern "C" VEK_TEST_MODULE_API TCustomVekAction* MakeBorderAction(IVekActionHost& host) {
  auto action = std::make_unique<TBorderAction>(host);
  action->Name = "An action of the module";
  return action.release();
}

extern "C" VEK_TEST_MODULE_API void AppendText(std::string& text) { text.append(1000, 'x'); }

/// Throws `error` on, so that it crosses the border twice.
extern "C" VEK_TEST_MODULE_API void Rethrow(const std::exception_ptr& error) {
  std::rethrow_exception(error);
}
