#include "programs/ChildSystem.h"

#include <csignal>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t noted = 0;

}  // namespace

std::vector<std::string> StartChild(int argc, char** argv) { return {argv + 1, argv + argc}; }

void IgnoreTermination() { std::signal(SIGTERM, SIG_IGN); }

void NoteTermination() {
  std::signal(SIGTERM, [](int) { noted = 1; });
}

bool TerminationNoted() { return noted != 0; }

void StartSelf(const std::vector<std::string>& arguments) {
  if (fork() != 0) return;
  std::vector<std::string> words{"TestChild"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  execv("/proc/self/exe", pointers.data());
  _exit(127);
}

unsigned long OwnNumber() { return static_cast<unsigned long>(getpid()); }
