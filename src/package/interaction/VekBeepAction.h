#pragma once

#include <cstdint>
#include <string>

#include "coreapi/Vekactionapi.h"
#include "platform/Processes.h"

enum class TBeepTypes { btDefault, btAsterisk, btExclamation, btHand, btQuestion, btSoundFile };
template <>
inline constexpr auto kEnumNames<TBeepTypes> = Names("TBeepTypes", "btDefault", "btAsterisk", "btExclamation",
                                                     "btHand", "btQuestion", "btSoundFile");

/// "Beep": plays a sound of the system or one of a file.
class TCustomBeepAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  TBeepTypes BeepType = TBeepTypes::btDefault;
  std::string SoundFile;
  int32_t RepeatCount = 1;
  bool WaitForCompletion = true;  // of the last repetition; the others are waited for

  bool Validate(IVekActionValidationError& errors) override;
  bool CanTerminate() const override { return true; }
  void TerminateAction() override { stop_.Signal(); }  // [any thread]

 protected:
  bool Execute() override;

 private:
  bool FindSoundFile(std::string& path) const;
  void PlayOnce(const std::string& path, bool isLast);

  StopEvent stop_;
};

class TBeepAction final : public PublishedAction<TBeepAction, TCustomBeepAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TBeepAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomBeepAction::BeepType>("BeepType"),
      Published<&TCustomBeepAction::SoundFile>("SoundFile", TextRole::File),
      Published<&TCustomBeepAction::RepeatCount>("RepeatCount"),
      Published<&TCustomBeepAction::WaitForCompletion>("WaitForCompletion"),
  };
};
