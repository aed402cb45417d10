#include "platform/posix/system/PosixSounds.h"

#include <array>
#include <unistd.h>

#include "platform/Processes.h"

namespace {

// Of the sound theme that every desktop falls back to, in the order of SystemSound.
constexpr std::string_view kThemeFolder = "/usr/share/sounds/freedesktop/stereo/";
constexpr std::array<std::string_view, 5> kThemeSounds = {"bell", "dialog-information", "dialog-warning",
                                                          "dialog-error", "dialog-question"};

// The last one takes every file for a WAV file.
constexpr auto kServerPlayers = "pw-play paplay";
constexpr auto kWavPlayers = "pw-play paplay aplay";

/// In double quotes, as Processes takes parameters apart.
std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  size_t backslashes = 0;
  for (const char c : text) {
    if (c == '"') quoted.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, '\\') + '"';
}

/// The terminal to ring the bell of; empty where there is none.
std::string TerminalName() {
  std::array<char, 256> name{};
  for (const int stream : {STDERR_FILENO, STDOUT_FILENO, STDIN_FILENO}) {
    if (ttyname_r(stream, name.data(), name.size()) == 0) return name.data();
  }
  return {};
}

}  // namespace

void PosixSounds::Play(SystemSound sound, SoundWait wait, StopEvent& stop) {
  const std::string_view name = kThemeSounds[static_cast<size_t>(sound)];
  Run(kServerPlayers, std::string(kThemeFolder).append(name).append(".oga"), wait, stop);
}

void PosixSounds::PlayFile(std::string_view path, SoundWait wait, StopEvent& stop) {
  std::string file;
  paths_.OnEntry(path, [&file](const Place& place) {
    if (faccessat(place.Fd(), place.Name(), F_OK, 0) != 0)
      return SysResult::Failure(Win32Error::FileNotFound);
    file = place.folder->path + '/' + place.name;
    return SysResult();
  });
  Run(kWavPlayers, file, wait, stop);
}

void PosixSounds::Run(const std::string& players, const std::string& file, SoundWait wait, StopEvent& stop) {
  constexpr std::string_view kScript =
      R"([ -f "$1" ] && for player in $0; do $player "$1" && exit; done; [ -z "$2" ] || printf '\a' >"$2")";
  const std::string command = "{ " + std::string(kScript) + "; } >/dev/null 2>&1";
  const ProcessSetup setup{.program = "/bin/sh",
                           .parameters = "-c " + Quoted(command) + ' ' + Quoted(players) + ' ' +
                                         Quoted(file) + ' ' + Quoted(TerminalName())};
  int32_t exitCode = 0;
  wait == SoundWait::ToEnd ? processes_.Run(setup, nullptr, stop, exitCode) : processes_.Start(setup);
}
