#pragma once

#include "platform/Sounds.h"

class Win32Sounds final : public Sounds {
 public:
  void Play(SystemSound sound, SoundWait wait, StopEvent& stop) override;
  void PlayFile(std::string_view path, SoundWait wait, StopEvent& stop) override;
};
