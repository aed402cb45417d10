#pragma once

#include <string>

#include "platform/Sounds.h"
#include "platform/posix/paths/PosixPaths.h"

class Processes;

/// Plays through the first of the usual players that is installed and finds a sound server.
class PosixSounds final : public Sounds {
 public:
  PosixSounds(PosixPaths& paths, Processes& processes) : paths_(paths), processes_(processes) {}
  void Play(SystemSound sound, SoundWait wait, StopEvent& stop) override;
  void PlayFile(std::string_view path, SoundWait wait, StopEvent& stop) override;

 private:
  void Run(const std::string& players, const std::string& file, SoundWait wait, StopEvent& stop);

  PosixPaths& paths_;
  Processes& processes_;
};
