#include "tools/xcopy/XcopySettings.h"

#include <algorithm>
#include <cstdio>

#include "platform/FileAttributes.h"

namespace {

using S = XcopySettings;
using V = std::string_view;

constexpr uint32_t kUnseen = FileAttribute::Hidden | FileAttribute::System;

bool TakeArchived(S& s, V) { return (s.requiredAttributes |= FileAttribute::Archive) != 0; }
bool TakeAndClearArchived(S& s, V v) { return s.clearsArchive = TakeArchived(s, v); }
bool TakeEmptyFolders(S& s, V) { return s.entersFolders = s.makesEmptyFolders = true; }

/// The tree without files: folders in which there are none to copy are made with /E only.
bool TakeTree(S& s, V) {
  s.copiesFiles = false;
  return s.entersFolders = true;
}

bool TakeHidden(S& s, V) {
  s.withoutAttributes = s.foldersWithoutAttributes = 0;
  return true;
}

bool TakeAttributes(S& s, V) {
  s.removedAttributes = 0;
  return true;
}

bool TakeContinue(S& s, V) {
  s.stopsAtError = false;
  return true;
}

bool TakeExisting(S& s, V) {
  s.copied.Set(FileClass::New, false);
  return true;
}

bool TakeNewer(S& s) {
  for (const FileClass c : {FileClass::Older, FileClass::Changed, FileClass::Tweaked, FileClass::Same}) {
    s.copied.Set(c, false);
  }
  return true;
}

/// Month, day and year; without a date what is newer than its target.
bool TakeDate(S& s, V value) {
  if (value.empty()) return TakeNewer(s);
  const StringList parts = SplitAt(value, "-");
  if (parts.size() != 3) return false;
  uint64_t numbers[3] = {};
  for (size_t i = 0; i < 3; ++i) {
    const auto number = NumberOf(parts[i]);
    if (!number || *number > 9999) return false;
    numbers[i] = *number;
  }
  char text[40];
  std::snprintf(text, sizeof text, "%04u-%02u-%02u", static_cast<unsigned>(numbers[2]),
                static_cast<unsigned>(numbers[0]), static_cast<unsigned>(numbers[1]));
  s.changedSince = ParseIso8601(text);
  return s.changedSince.has_value();
}

bool TakeExclusions(S& s, V value) {
  std::ranges::move(SplitAt(value, "+"), std::back_inserter(s.exclusionFiles));
  return !value.empty();
}

constexpr V kNobodyAsks = "nothing is asked, files are replaced";

using enum SwitchValue;
constexpr Switch<S> kRows[] = {
    {.help = "Which files"},
    {"A", None, "", &TakeArchived, "only those with the archive attribute"},
    {"M", None, "", &TakeAndClearArchived, "likewise, and takes it from them"},
    {"D", Optional, "m-d-y", &TakeDate,
     "those changed on that date or later; without one, those newer than their target"},
    {"EXCLUDE", Required, "file[+file]...", &TakeExclusions,
     "leaves out paths that hold one of the texts in these files, a line each"},
    {"H", None, "", &TakeHidden, "hidden and system files and folders, too"},
    {"U", None, "", &TakeExisting, "only those that the destination has"},
    {"S", None, "", &On<&CopyRules::entersFolders, S>, "sub-folders, too, but not empty ones"},
    {"E", None, "", &TakeEmptyFolders, "sub-folders, empty ones too"},
    {"T", None, "", &TakeTree, "only the folders; those without files with /E only"},

    {.help = "How"},
    {"I", None, "", &Nothing<S>, "the destination is a folder; it always is"},
    {"C", None, "", &TakeContinue, "goes on after errors"},
    {"R", None, "", &On<&CopyRules::overwritesReadOnly, S>, "replaces read-only files"},
    {"K", None, "", &TakeAttributes, "copies the read-only attribute, too"},
    {"V", None, "", &On<&CopyRules::verifiesSize, S>, "compares the size of each new file"},
    {"Y", None, "", &Nothing<S>, "replaces files without asking; nothing is asked in any case"},
    {"-Y", None, "", &Nothing<S>, "asks before it replaces", kNobodyAsks},
    {"P", None, "", &Nothing<S>, "asks before each file", kNobodyAsks},
    {"W", None, "", &Nothing<S>, "waits for a key", "it starts at once"},
    {"Z", None, "", &Nothing<S>, "restartable mode", "a file is whole or not there in any case"},
    {"N", None, "", &Nothing<S>, "short names", "names are what they are"},
    {"O", None, "", &Nothing<S>, "owners and access lists", "they are not copied"},
    {"X", None, "", &Nothing<S>, "audit settings", "there are none to copy"},
    {"G", None, "", &Nothing<S>, "encrypted files to anywhere", "files are copied as they are read"},
    {"J", None, "", &Nothing<S>, "unbuffered", "copies are made as the system makes them best"},
    {"B", None, "", &Nothing<S>, "links as links", "links are followed"},

    {.help = "What is told"},
    {"Q", None, "", &On<&S::isQuiet, S>, "no file names"},
    {"F", None, "", &On<&S::showsFullNames, S>, "source and destination of each file"},
    {"L", None, "", &On<&CopyRules::listsOnly, S>, "only lists what would be copied"},
    {"?", None, "", &On<&S::showsHelp, S>, "this"},
};

}  // namespace

XcopySettings::XcopySettings() {
  withoutAttributes = foldersWithoutAttributes = kUnseen;
  removedAttributes = FileAttribute::ReadOnly;
  overwritesReadOnly = false;
  stopsAtError = true;
  copied.Set(FileClass::Same, true);
  copied.Set(FileClass::Tweaked, true);
  copied.Set(FileClass::Extra, false);
}

std::span<const Switch<XcopySettings>> XcopySwitches() { return kRows; }
