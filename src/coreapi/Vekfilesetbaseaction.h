#pragma once

#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekfilesets.h"

/// Base of actions that work on a named file set. Its Execute finds the set, calls ExecuteFileSet with it,
/// reports what that raises and fails.
class VEK_API TFileSetBaseAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;
  ~TFileSetBaseAction() override;

  const std::string& FileSetName() const { return fileSetName_; }
  void SetFileSetName(std::string_view value);

  std::string GetDescriptionKeyValue(int32_t index) const override;
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override;
  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

  /// The action's work; true when the run completed.
  virtual bool ExecuteFileSet(IVekFileSet& fileSet) = 0;

 private:
  std::string fileSetName_;
};

inline constexpr PropertyRow kFileSetBaseProperties[] = {
    Published<&TFileSetBaseAction::FileSetName, &TFileSetBaseAction::SetFileSetName>("FileSetName",
                                                                                     TextRole::FileSet),
};
consteval std::span<const PropertyRow> BaseRows(const TFileSetBaseAction*) { return kFileSetBaseProperties; }
