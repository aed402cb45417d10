#pragma once

#include <string_view>

class StopEvent;

/// The sounds that a system has for its own messages.
enum class SystemSound { Default, Asterisk, Exclamation, Hand, Question };

/// Whether a sound is waited for.
enum class SoundWait { ToEnd, No };

/// Sounds are a courtesy: where none can be heard the terminal's bell stands in, and where there is none of
/// that either nothing happens. `stop` ends one that is waited for.
class Sounds {
 public:
  virtual ~Sounds() = default;
  virtual void Play(SystemSound sound, SoundWait wait, StopEvent& stop) = 0;

  /// Plays a WAV file.
  virtual void PlayFile(std::string_view path, SoundWait wait, StopEvent& stop) = 0;
};
