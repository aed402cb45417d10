#include "base/WindowsPath.h"
#include "fuzz/Fuzz.h"
#include "host/filesets/PathPattern.h"

namespace {

StringList Names(std::string_view path) {
  StringList names(1);
  for (const char c : path) IsPathDelimiter(c) ? void(names.emplace_back()) : void(names.back() += c);
  std::erase(names, "");
  return names;
}

/// The parts of a pattern. What it leaves unsaid is written out.
StringList Parts(std::string_view pattern) {
  StringList parts = Names(pattern);
  std::erase(parts, ".");
  if (!pattern.empty() && IsPathDelimiter(pattern.back())) parts.emplace_back("**");
  if (!parts.empty() && parts.back() == "**") parts.emplace_back("*");
  return parts;
}

using Next = StringList::const_iterator;

/// Tries every number of folders for each "**".
bool Matches(Next part, Next lastPart, Next name, Next lastName) {
  if (part == lastPart || name == lastName) return part == lastPart && name == lastName;
  if (*part == "**") {
    return Matches(part + 1, lastPart, name, lastName) ||
           (lastName - name > 1 && Matches(part, lastPart, name + 1, lastName));
  }
  return MatchesDosMask(*name, *part) && Matches(part + 1, lastPart, name + 1, lastName);
}

}  // namespace

FuzzFormat TargetFormat() {
  return {.seeds = {"**\\*.cpp\x1Fsub/deep/a.cpp", "s*\\a.?\x1Fsub\\a.c", "sub\\\x1Fsub/deep/a",
                    "**/deep/**/a.*\x1Fx/deep/y/a"},
          .words = {"**", "*", "?", "\\", "/", ".", "..", "a", "b", "a/", "b/", "**\\", "*.", ".\\", "**\\**",
                    std::string(kFieldEnd)},
          .runs = 30'000};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const StringList fields = Fields(InputText(data, size), 2);
  const StringList parts = Parts(fields[0]), names = Names(fields[1]);
  if (names.empty() || names.size() > 8 || parts.size() > 16) return 0;
  const bool wanted = Matches(parts.begin(), parts.end(), names.begin(), names.end());

  const PathPattern pattern(fields[0]);
  PathPattern::State state = pattern.Start();
  for (size_t i = 0;; ++i) {
    Require(!wanted || pattern.CanMatchBelow(state), "the walk would end above a match");
    Require(wanted || !pattern.MatchesAllBelow(state), "not all below is matched");
    if (i + 1 == names.size()) break;
    state = pattern.Enter(state, names[i]);
  }
  Require(pattern.MatchesFile(state, names.back()) == wanted, "the slow pattern sees it otherwise");
  return 0;
}
