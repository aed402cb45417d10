#include "platform/win32/system/Win32Sounds.h"

#include "platform/Processes.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
// After the system's own header, which it needs.
#include <mmsystem.h>

namespace {

// In the order of SystemSound; the names under which the user chooses them.
constexpr const wchar_t* kAliases[] = {L".Default", L"SystemAsterisk", L"SystemExclamation", L"SystemHand",
                                       L"SystemQuestion"};

void PlayNamed(const std::wstring& name, DWORD kind, SoundWait wait, StopEvent& stop) {
  // A sound that nobody plays ends the one that plays.
  const StopEvent::Watch watch(stop, [] { PlaySoundW(nullptr, nullptr, 0); });
  PlaySoundW(name.c_str(), nullptr, kind | (wait == SoundWait::ToEnd ? SND_SYNC : SND_ASYNC));
}

}  // namespace

void Win32Sounds::Play(SystemSound sound, SoundWait wait, StopEvent& stop) {
  PlayNamed(kAliases[static_cast<size_t>(sound)], SND_ALIAS, wait, stop);
}

void Win32Sounds::PlayFile(std::string_view path, SoundWait wait, StopEvent& stop) {
  // Not the form that lifts the length limit, which this call does not take.
  std::wstring name;
  if (AbsolutePath(path, name)) PlayNamed(name, SND_FILENAME, wait, stop);
}
