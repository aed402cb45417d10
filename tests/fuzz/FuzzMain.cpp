#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "fuzz/FuzzInputs.h"

namespace {

constexpr unsigned kHangSeconds = 60;  // for one input

struct Options {
  uint64_t seed = 1;
  uint64_t runs = 0;  // 0: the target's own number
  uint64_t seconds = 0;
  const char* input = nullptr;
};

/// What the runs leave for whoever looks at how they ended.
struct Progress {
  uint64_t runs;
  bool inInput;
  size_t size;
  char input[kLargestInput];
};

void RunInput(Progress& progress, const std::string& input) {
  progress.size = input.size();
  std::memcpy(progress.input, input.data(), input.size());
  progress.inInput = true;
  alarm(kHangSeconds);
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(input.data()), input.size());
  alarm(0);
  progress.inInput = false;
  ++progress.runs;
}

enum class Output { Shown, Hidden };

/// Does the work in a process of its own, which may end in any way; answers how, or "" for a good end.
std::string InOwnProcess(Output output, const std::function<void()>& work) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    if (output == Output::Hidden) dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    work();
    std::exit(0);  // and look for leaks
  }
  int status = -1;
  if (child < 0 || waitpid(child, &status, 0) != child) return "no process to run in";
  if (WIFSIGNALED(status)) {
    const bool hung = WTERMSIG(status) == SIGALRM;
    return hung ? "it hangs" : "ended by signal " + std::to_string(WTERMSIG(status));
  }
  return status == 0 ? "" : "ended with code " + std::to_string(WEXITSTATUS(status));
}

Progress& SharedProgress() {
  void* memory = mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) std::perror("mmap"), std::exit(2);
  return *new (memory) Progress{};
}

/// The input without whatever can be left out so that it still fails.
std::string Shrunk(std::string input) {
  Progress& progress = SharedProgress();
  const auto fails = [&](const std::string& text) {
    return !InOwnProcess(Output::Hidden, [&] { RunInput(progress, text); }).empty();
  };
  for (size_t piece = input.size() / 2; piece > 0; piece /= 2) {
    for (size_t at = 0; at + piece <= input.size();) {
      const std::string shorter = input.substr(0, at) + input.substr(at + piece);
      fails(shorter) ? void(input = shorter) : void(at += piece);
    }
  }
  return input;
}

void SaveInput(const std::string& file, const std::string& input) {
  if (!(std::ofstream(file, std::ios::binary) << input)) return std::perror(file.c_str());
  std::fprintf(stderr, "it is in %s, for --input\n", file.c_str());
}

int Fuzz(const Options& options, const std::string& program) {
  using Clock = std::chrono::steady_clock;
  const FuzzFormat format = TargetFormat();
  const FuzzInputs inputs(format, options.seed);
  const auto start = Clock::now();
  const auto goesOn = [&](uint64_t run) {
    if (options.seconds > 0) return Clock::now() - start < std::chrono::seconds(options.seconds);
    return run < (options.runs > 0 ? options.runs : format.runs);
  };
  Progress& progress = SharedProgress();
  const std::string end = InOwnProcess(Output::Shown, [&] {
    while (goesOn(progress.runs)) RunInput(progress, inputs.Make(progress.runs));
  });
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  std::printf("%llu runs of seed %llu in %.1f s, %.0f a second\n",
              static_cast<unsigned long long>(progress.runs), static_cast<unsigned long long>(options.seed),
              seconds, static_cast<double>(progress.runs) / seconds);
  if (end.empty()) return 0;
  if (!progress.inInput) {
    std::fprintf(stderr, "FAILED after all runs: %s\n", end.c_str());
    return 1;
  }
  std::string input(progress.input, progress.size);
  if (end != "it hangs") input = Shrunk(std::move(input));
  std::fprintf(stderr, "FAILED in run %llu of seed %llu: %s; the input, shortened:\n%s\n",
               static_cast<unsigned long long>(progress.runs), static_cast<unsigned long long>(options.seed),
               end.c_str(), Literal(input).c_str());
  SaveInput(program + ".input", input);
  return 1;
}

/// In this process, for a debugger.
int Replay(const char* file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::perror(file), 2;
  const std::string input{std::istreambuf_iterator<char>(stream), {}};
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(input.data()), input.size());
  return 0;
}

std::optional<Options> ParseOptions(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; i += 2) {
    const std::string_view name = argv[i], value = i + 1 < argc ? argv[i + 1] : "";
    if (name == "--input" && !value.empty()) {
      options.input = value.data();
      continue;
    }
    uint64_t* const number = name == "--seed"      ? &options.seed
                             : name == "--runs"    ? &options.runs
                             : name == "--seconds" ? &options.seconds
                                                   : nullptr;
    const char* const valueEnd = value.data() + value.size();
    if (number == nullptr || value.empty() ||
        std::from_chars(value.data(), valueEnd, *number).ptr != valueEnd) {
      return {};
    }
  }
  return options;
}

}  // namespace

int main(int argc, char** argv) {
  const auto options = ParseOptions(argc, argv);
  if (!options) {
    std::fprintf(stderr, "usage: %s [--seed N] [--runs N | --seconds N] | --input FILE\n", argv[0]);
    return 2;
  }
  return options->input != nullptr ? Replay(options->input) : Fuzz(*options, argv[0]);
}
