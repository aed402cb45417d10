// Times commands against each other, in turns (A B A B), precisely enough for processes of a millisecond.
//
// usage: vek_stopwatch ROUNDS [--prepare COMMAND...] -- NAME COMMAND... [-- NAME COMMAND...]...
//
// "{}" in an argument stands for the number of the run, so that every run can have a fresh folder; the
// prepare command runs before each timed one and is not timed. Output of the commands is dropped. Prints a
// row per command: least and median time, both times relative to the first command's, and peak memory.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using Command = std::vector<std::string>;

struct Contestant {
  std::string name;
  Command command;
  std::vector<double> milliseconds;
  long peakKilobytes = 0;

  double Least() const { return *std::ranges::min_element(milliseconds); }
  double Median() const {
    std::vector<double> sorted = milliseconds;
    std::ranges::sort(sorted);
    return sorted[sorted.size() / 2];
  }
};

struct Measurement {
  double milliseconds;
  long peakKilobytes;
};

[[noreturn]] void Fail(const std::string& text) {
  std::fprintf(stderr, "vek_stopwatch: %s\n", text.c_str());
  std::exit(1);
}

std::string WithRun(std::string argument, int run) {
  for (size_t at; (at = argument.find("{}")) != std::string::npos;)
    argument.replace(at, 2, std::to_string(run));
  return argument;
}

/// Runs the command to its end; one that fails ends everything, since its time means nothing.
Measurement Run(const Command& command, int run) {
  Command arguments;
  for (const std::string& argument : command) arguments.push_back(WithRun(argument, run));
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ) != 0)
    Fail("cannot run " + arguments[0]);
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;

  posix_spawn_file_actions_destroy(&actions);
  if (status != 0) Fail(arguments[0] + " failed");
  return {elapsed.count(), usage.ru_maxrss};
}

/// Splits the command line at "--".
std::vector<Command> Parts(int argc, char** argv) {
  std::vector<Command> parts(1);
  for (int i = 1; i < argc; ++i) {
    if (std::string(argv[i]) == "--")
      parts.emplace_back();
    else
      parts.back().emplace_back(argv[i]);
  }
  return parts;
}

void Measure(std::vector<Contestant>& contestants, const Command& prepare, int rounds) {
  int run = 0;
  for (int round = 0; round <= rounds; ++round) {
    for (Contestant& contestant : contestants) {
      ++run;
      if (!prepare.empty()) Run(prepare, run);
      const Measurement measured = Run(contestant.command, run);
      if (round == 0) continue;  // warms the caches
      contestant.milliseconds.push_back(measured.milliseconds);
      contestant.peakKilobytes = std::max(contestant.peakKilobytes, measured.peakKilobytes);
    }
  }
}

void Print(const std::vector<Contestant>& contestants) {
  const double least = contestants[0].Least(), median = contestants[0].Median();
  std::printf("  %-16s %12s %8s %12s %8s %10s\n", "", "least ms", "ratio", "median ms", "ratio", "peak MiB");
  for (const Contestant& one : contestants) {
    std::printf("  %-16s %12.2f %8.2f %12.2f %8.2f %10.1f\n", one.name.c_str(), one.Least(),
                one.Least() / least, one.Median(), one.Median() / median,
                static_cast<double>(one.peakKilobytes) / 1024);
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<Command> parts = Parts(argc, argv);
  const int rounds = parts[0].empty() ? 0 : std::atoi(parts[0][0].c_str());
  const bool prepares = parts[0].size() > 2 && parts[0][1] == "--prepare";
  if (rounds < 1 || parts.size() < 2 || (parts[0].size() > 1 && !prepares)) {
    Fail("usage: vek_stopwatch ROUNDS [--prepare COMMAND...] -- NAME COMMAND... [-- NAME COMMAND...]...");
  }
  const Command prepare = prepares ? Command(parts[0].begin() + 2, parts[0].end()) : Command();

  std::vector<Contestant> contestants;
  for (size_t i = 1; i < parts.size(); ++i) {
    if (parts[i].size() < 2) Fail("a command without a name");
    contestants.push_back({parts[i][0], Command(parts[i].begin() + 1, parts[i].end()), {}});
  }
  Measure(contestants, prepare, rounds);
  Print(contestants);
}
