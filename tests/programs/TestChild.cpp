// A program for tests to run; its first argument says what it does.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "programs/ChildSystem.h"

namespace {

using Arguments = std::vector<std::string>;

int Number(const Arguments& arguments, size_t index) { return std::stoi(arguments.at(index)); }

void Write(FILE* stream, const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stream);
  std::fflush(stream);
}

/// The text with \n, \r and \xNN taken as the bytes that they name.
std::string Unescaped(const std::string& text) {
  std::string bytes;
  for (size_t i = 0; i < text.size(); ++i) {
    const bool isEscape = text[i] == '~' && i + 1 < text.size();
    if (!isEscape) {
      bytes += text[i];
    } else if (const char c = text[++i]; c == 'x') {
      bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      bytes += c == 'n' ? '\n' : '\r';
    }
  }
  return bytes;
}

int PrintArguments(const Arguments& arguments) {
  for (size_t i = 1; i < arguments.size(); ++i) Write(stdout, '[' + arguments[i] + "]\n");
  return 0;
}

/// bytes OUT ERR: escaped with '~'.
int PrintBytes(const Arguments& arguments) {
  Write(stdout, Unescaped(arguments.at(1)));
  if (arguments.size() > 2) Write(stderr, Unescaped(arguments[2]));
  return 0;
}

/// fill LINES: numbered lines, first all of standard error, then all of standard output, then both in turn.
int FillBoth(const Arguments& arguments) {
  const int lines = Number(arguments, 1);
  for (int i = 0; i < lines; ++i) std::fprintf(stderr, "%d err\n", i);
  for (int i = 0; i < lines; ++i) std::fprintf(stdout, "%d out\n", i);
  std::fflush(stdout);
  for (int i = lines; i < lines + 100; ++i) {
    Write(stdout, std::to_string(i) + " out\n");
    Write(stderr, std::to_string(i) + " err\n");
  }
  return 0;
}

/// exit CODE
int Exit(const Arguments& arguments) { return Number(arguments, 1); }

/// sleep SECONDS [TEXT]: writes the text and its own number first.
int Sleep(const Arguments& arguments) {
  if (arguments.size() > 2) Write(stdout, arguments[2] + ' ' + std::to_string(OwnNumber()) + '\n');
  std::this_thread::sleep_for(std::chrono::seconds(Number(arguments, 1)));
  return 0;
}

/// stubborn SECONDS TEXT: likewise, and takes no notice of being asked to end.
int Stubborn(const Arguments& arguments) {
  IgnoreTermination();
  return Sleep(arguments);
}

/// polite: writes when it is ready, and when it is asked to end.
int Polite(const Arguments& /*arguments*/) {
  NoteTermination();
  Write(stdout, "ready\n");
  while (!TerminationNoted()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  Write(stdout, "bye\n");
  return 0;
}

/// close CODE: closes its output and lives on for a while.
int CloseOutput(const Arguments& arguments) {
  std::fclose(stdout);
  std::fclose(stderr);
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  return Number(arguments, 1);
}

/// leave SECONDS: a program that it starts holds its output for so long; it ends itself.
int LeaveChild(const Arguments& arguments) {
  StartSelf({"sleep", arguments.at(1)});
  Write(stdout, "left\n");
  return 0;
}

/// parent SECONDS: starts a program that is stubborn, and sleeps as well.
int Parent(const Arguments& arguments) {
  StartSelf({"stubborn", arguments.at(1), "child"});
  return Sleep({"sleep", arguments.at(1), "parent"});
}

/// where: the current folder.
int Where(const Arguments& /*arguments*/) {
  Write(stdout, std::filesystem::current_path().generic_string() + '\n');
  return 0;
}

/// input: the number of bytes it can read.
int Input(const Arguments& /*arguments*/) {
  const std::string all(std::istreambuf_iterator<char>(std::cin), {});
  Write(stdout, std::to_string(all.size()) + " bytes\n");
  return 0;
}

/// touch FILE
int Touch(const Arguments& arguments) {
  FILE* file = std::fopen(arguments.at(1).c_str(), "wb");
  return file == nullptr || std::fclose(file) != 0 ? 1 : 0;
}

/// variable NAME
int Variable(const Arguments& arguments) {
  const char* value = std::getenv(arguments.at(1).c_str());
  Write(stdout, std::string(value != nullptr ? value : "(none)") + '\n');
  return 0;
}

constexpr struct {
  const char* name;
  int (*run)(const Arguments& arguments);
} kModes[] = {
    {"args", PrintArguments}, {"bytes", PrintBytes},  {"fill", FillBoth},     {"exit", Exit},
    {"sleep", Sleep},         {"stubborn", Stubborn}, {"close", CloseOutput}, {"leave", LeaveChild},
    {"parent", Parent},       {"where", Where},       {"input", Input},       {"touch", Touch},
    {"variable", Variable},   {"polite", Polite},
};

}  // namespace

int main(int argc, char** argv) {
  const Arguments arguments = StartChild(argc, argv);
  for (const auto& mode : kModes) {
    if (!arguments.empty() && arguments.front() == mode.name) return mode.run(arguments);
  }
  std::fputs("unknown mode\n", stderr);
  return 99;
}
