#include "interaction/VekBeepAction.h"

#include "platform/Entries.h"
#include "platform/Platform.h"
#include "platform/Sounds.h"

namespace {

constexpr std::string_view kAliases[] = {
    "[Beep]",
    "BeepType=Sound",
    "SoundFile=Sound File",
    "RepeatCount=Repeat Count",
    "WaitForCompletion=Wait for Completion",
};

constexpr std::string_view kHelp[] = {
    "BeepType=One of the system's sounds, or that of a file",
    "SoundFile=The WAV file to play",
    "RepeatCount=How many times to play it",
    "WaitForCompletion=Go on when the last sound has ended, not when it begins",
};

}  // namespace

const ActionClass TCustomBeepAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomBeepAction",
    .actionName = "Beep",
    .helpTopicID = 5560,
    .quickHelpFilename = "Plugins\\Beep.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomBeepAction::Validate(IVekActionValidationError& errors) {
  if (BeepType != TBeepTypes::btSoundFile || !SoundFile.empty()) return true;
  errors.AddError("Sound File", "The sound file has not been set");
  return false;
}

bool TCustomBeepAction::Execute() {
  RearmStop(stop_);
  std::string path;
  if (BeepType == TBeepTypes::btSoundFile && !FindSoundFile(path)) return false;
  for (int32_t i = 0; i < RepeatCount && !StopSignalled(); ++i) PlayOnce(path, i + 1 == RepeatCount);
  return true;
}

bool TCustomBeepAction::FindSoundFile(std::string& path) const {
  if (!TryExpandExpression("Sound File", SoundFile, path, true)) return false;
  if (GetPlatform().entries->FileExists(path)) return true;
  SendMessage("File does not exist: " + path);
  return false;
}

void TCustomBeepAction::PlayOnce(const std::string& path, bool isLast) {
  // One that nobody waits for would cut off, or play over, the one before it.
  const SoundWait wait = isLast && !WaitForCompletion ? SoundWait::No : SoundWait::ToEnd;
  Sounds& sounds = *GetPlatform().sounds;
  if (BeepType == TBeepTypes::btSoundFile) {
    sounds.PlayFile(path, wait, stop_);
  } else {
    sounds.Play(static_cast<SystemSound>(BeepType), wait, stop_);
  }
}
