#include "tools/robocopy/RobocopySettings.h"

#include "base/WindowsPath.h"
#include "platform/FileAttributes.h"
#include "tools/AttributeLetters.h"

namespace {

using S = RobocopySettings;
using V = std::string_view;

constexpr uint64_t kManyRetries = 1'000'000;
constexpr double kWaitSeconds = 30;
constexpr unsigned kUsualThreads = 8, kMostThreads = 128;
constexpr double kFatTimeStep = 2;

template <FileClass Class, bool Copied>
bool Classes(S& s, V) {
  s.copied.Set(Class, Copied);
  return true;
}

bool TakeMirror(S& s, V) { return s.entersFolders = s.makesEmptyFolders = s.purges = true; }
bool TakeEmptyFolders(S& s, V) { return s.entersFolders = s.makesEmptyFolders = true; }
bool TakeMove(S& s, V) { return s.movesFiles = s.movesFolders = true; }
bool TakeNoLinks(S& s, V) { return s.leavesFileLinks = s.leavesFolderLinks = true; }
bool TakeFatTimes(S& s, V) { return (s.timeStep = kFatTimeStep) > 0; }

bool TakeArchived(S& s, V) { return (s.requiredAttributes |= FileAttribute::Archive) != 0; }
bool TakeAndClearArchived(S& s, V v) { return s.clearsArchive = TakeArchived(s, v); }

/// Says once of letters that no file here has what becomes of them.
bool TakeLetters(S& s, V name, V letters, uint32_t& bits) {
  const auto given = AttributesOfLetters(letters);
  if (!given) return false;
  bits |= *given;
  if ((*given & ~KeptAttributes()) != 0) {
    s.notes.push_back("/" + std::string(name) + ":" + std::string(letters) +
                      " : files have the attributes R, A, S and H only");
  }
  return true;
}

bool TakeWith(S& s, V letters) {
  uint32_t bits = s.withAttributes.value_or(0);
  const bool taken = TakeLetters(s, "IA", letters, bits);
  s.withAttributes = bits;
  return taken;
}
bool TakeWithout(S& s, V letters) { return TakeLetters(s, "XA", letters, s.withoutAttributes); }
bool TakeAdded(S& s, V letters) { return TakeLetters(s, "A+", letters, s.addedAttributes); }
bool TakeRemoved(S& s, V letters) { return TakeLetters(s, "A-", letters, s.removedAttributes); }

bool TakeCopyFlags(S& s, V flags) {
  const std::string upper = UpCase(flags);
  if (upper.find_first_not_of("DATSOUX") != std::string::npos) return false;
  s.copiesData = upper.find('D') != std::string::npos;
  s.copiesAttributes = upper.find('A') != std::string::npos;
  constexpr struct {
    char flag;
    V text;
  } kNotes[] = {{'S', "access lists are not copied"},
                {'O', "owners are not copied"},
                {'U', "there are no audit settings to copy"}};
  for (const auto& [flag, text] : kNotes) {
    if (upper.find(flag) != std::string::npos) {
      s.notes.push_back(std::string("/COPY:") + flag + " : " + std::string(text));
    }
  }
  return true;
}
bool TakeSecure(S& s, V) { return TakeCopyFlags(s, "DATS"); }
bool TakeAll(S& s, V) { return TakeCopyFlags(s, "DATSOU"); }
bool TakeNoCopy(S& s, V) { return TakeCopyFlags(s, ""); }

bool TakeFolderFlags(S& s, V flags) {
  const std::string upper = UpCase(flags);
  if (upper.find('T') != std::string::npos) s.notes.emplace_back("/DCOPY:T : folders get new times");
  return !upper.empty() && upper.find_first_not_of("DATEX") == std::string::npos;
}

bool TakeThreads(S& s, V value) {
  const auto number = value.empty() ? kUsualThreads : NumberOf(value);
  if (!number || *number < 1 || *number > kMostThreads) return false;
  s.threads = static_cast<unsigned>(*number);
  return true;
}

bool TakeWait(S& s, V value) {
  const auto seconds = NumberOf(value);
  s.waitSeconds = static_cast<double>(seconds.value_or(0));
  return seconds.has_value();
}

bool TakeGap(S& s, V value) {
  const auto milliseconds = NumberOf(value);
  s.gapSeconds = static_cast<double>(milliseconds.value_or(0)) / 1000;
  return milliseconds.has_value();
}

bool TakeLog(S& s, V value) {
  s.appends = false;
  return TextValue<&LogRules::logFile>(s, value);
}
bool TakeLogAppended(S& s, V value) { return (s.appends = TakeLog(s, value)); }

bool Refuse(S& /*s*/, V /*value*/) { return false; }

constexpr V kAlwaysWhole = "a file is whole or not there in any case";
constexpr V kNoWay = "copies are made as the system makes them best";
constexpr V kLongNames = "names are what they are";

using enum SwitchValue;
constexpr Switch<S> kRows[] = {
    {.help = "Copy options"},
    {"S", None, "", &On<&CopyRules::entersFolders, S>, "copies sub-folders, but not empty ones"},
    {"E", None, "", &TakeEmptyFolders, "copies sub-folders, empty ones too"},
    {"LEV", Required, "n", &Number<&CopyRules::levels, S>, "copies only the top n levels of the tree"},
    {"COPY", Required, "flags", &TakeCopyFlags,
     "what is copied of files: D data, A attributes, T times (come with the data); /COPY:DAT by default"},
    {"SEC", None, "", &TakeSecure, "is /COPY:DATS"},
    {"COPYALL", None, "", &TakeAll, "is /COPY:DATSOU"},
    {"NOCOPY", None, "", &TakeNoCopy, "copies nothing of files (with /PURGE)"},
    {"DCOPY", Required, "flags", &TakeFolderFlags, "what is copied of folders: D data, A attributes"},
    {"PURGE", None, "", &On<&CopyRules::purges, S>, "deletes what the source no longer has"},
    {"MIR", None, "", &TakeMirror, "mirrors a tree (/E with /PURGE)"},
    {"MOV", None, "", &On<&CopyRules::movesFiles, S>, "moves files (deletes them from the source)"},
    {"MOVE", None, "", &TakeMove, "moves files and folders"},
    {"A+", Required, "[RASH]", &TakeAdded, "adds these attributes to copied files"},
    {"A-", Required, "[RASH]", &TakeRemoved, "takes these attributes from copied files"},
    {"IPG", Required, "n", &TakeGap, "waits n milliseconds after each 64 KiB"},
    {"MT", Optional, "n", &TakeThreads, "copies on n threads, 8 by default, 128 at most"},
    {"FAT", None, "", &Nothing<S>, "short file names", kLongNames},
    {"256", None, "", &Nothing<S>, "no very long paths", kLongNames},
    {"Z", None, "", &Nothing<S>, "restartable mode", kAlwaysWhole},
    {"B", None, "", &Nothing<S>, "backup mode", "who may read a file decides"},
    {"ZB", None, "", &Nothing<S>, "restartable, else backup mode", kAlwaysWhole},
    {"J", None, "", &Nothing<S>, "unbuffered", kNoWay},
    {"NOOFFLOAD", None, "", &Nothing<S>, "without offloading", kNoWay},
    {"COMPRESS", None, "", &Nothing<S>, "compressed on the network", kNoWay},
    {"EFSRAW", None, "", &Nothing<S>, "encrypted files as they are", "files are copied as they are read"},
    {"SL", None, "", &Nothing<S>, "links as links", "links are followed"},
    {"SJ", None, "", &Nothing<S>, "junctions as junctions", "links are followed"},
    {"SECFIX", None, "", &Nothing<S>, "security of all files", "access lists are not copied"},
    {"TIMFIX", None, "", &Nothing<S>, "times of all files", "times come with the data"},
    {"NODCOPY", None, "", &Nothing<S>, "nothing of folders", "folders get the attributes of the source"},
    {"CREATE", None, "", &Refuse, "is refused here: the tree with empty files"},
    {"MON", Required, "n", &Refuse, "is refused here: runs again after n changes"},
    {"MOT", Required, "m", &Refuse, "is refused here: runs again after m minutes"},
    {"RH", Required, "hhmm-hhmm", &Nothing<S>, "run hours", "it runs when it is started"},
    {"PF", None, "", &Nothing<S>, "run hours for each file", "it runs when it is started"},

    {.help = "File selection"},
    {"A", None, "", &TakeArchived, "copies only files with the archive attribute"},
    {"M", None, "", &TakeAndClearArchived, "likewise, and takes it from them"},
    {"IA", Required, "[RASHCNETO]", &TakeWith, "copies only files with one of these attributes"},
    {"XA", Required, "[RASHCNETO]", &TakeWithout, "leaves out files with one of these attributes"},
    {"XF", List, "file [file]...", &ListEntry<&SelectionRules::excludedFiles, S>,
     "leaves out files by name, path or wildcards"},
    {"XD", List, "folder [folder]...", &ListEntry<&SelectionRules::excludedFolders, S>,
     "leaves out folders by name, path or wildcards"},
    {"XC", None, "", &Classes<FileClass::Changed, false>, "leaves out changed files (same time, other size)"},
    {"XN", None, "", &Classes<FileClass::Newer, false>, "leaves out newer files"},
    {"XO", None, "", &Classes<FileClass::Older, false>, "leaves out older files"},
    {"XX", None, "", &Classes<FileClass::Extra, false>, "leaves alone what only the destination has"},
    {"XL", None, "", &Classes<FileClass::New, false>, "leaves out what only the source has"},
    {"IS", None, "", &Classes<FileClass::Same, true>, "copies files that are the same, too"},
    {"IT", None, "", &Classes<FileClass::Tweaked, true>, "copies files that differ in attributes only, too"},
    {"IM", None, "", &Nothing<S>, "files with other change times", "they say nothing of a copy"},
    {"MAX", Required, "n", &Number<&SelectionRules::largest, S>, "leaves out files larger than n bytes"},
    {"MIN", Required, "n", &Number<&SelectionRules::smallest, S>, "leaves out files smaller than n bytes"},
    {"MAXAGE", Required, "n", &Number<&S::largestAge, S>,
     "leaves out files older than n days, or than the date YYYYMMDD"},
    {"MINAGE", Required, "n", &Number<&S::smallestAge, S>, "leaves out files newer than that"},
    {"MAXLAD", Required, "n", &Number<&S::largestAccessAge, S>, "leaves out files not read since then"},
    {"MINLAD", Required, "n", &Number<&S::smallestAccessAge, S>, "leaves out files read since then"},
    {"XJ", None, "", &TakeNoLinks, "leaves out links"},
    {"XJD", None, "", &On<&SelectionRules::leavesFolderLinks, S>, "leaves out links to folders"},
    {"XJF", None, "", &On<&SelectionRules::leavesFileLinks, S>, "leaves out links to files"},
    {"FFT", None, "", &TakeFatTimes, "times that differ by two seconds are the same"},
    {"DST", None, "", &On<&SelectionRules::ignoresDaylight, S>, "times that differ by one hour are the same"},

    {.help = "Retries"},
    {"R", Required, "n", &Number<&CopyRules::retries, S>, "retries of a failed copy, 1 million by default"},
    {"W", Required, "n", &TakeWait, "seconds between them, 30 by default"},
    {"REG", None, "", &Nothing<S>, "keeps /R and /W as defaults", "defaults are not kept"},
    {"TBD", None, "", &Nothing<S>, "waits for share names", "there are no share names to wait for"},
    {"LFSM", Optional, "n", &Nothing<S>, "low free space mode", "a full disk is an error"},

    {.help = "What is told"},
    {"L", None, "", &On<&CopyRules::listsOnly, S>, "only lists what would be done"},
    {"X", None, "", &On<&LogRules::listsExtras, S>, "lists all extra files, not only the selected ones"},
    {"V", None, "", &On<&LogRules::isVerbose, S>, "lists skipped files, too"},
    {"TS", None, "", &On<&LogRules::showsTimes, S>, "shows the times of source files (UTC)"},
    {"FP", None, "", &On<&LogRules::showsFullPaths, S>, "shows full paths"},
    {"BYTES", None, "", &On<&LogRules::showsBytes, S>, "shows sizes in bytes"},
    {"NS", None, "", &On<&LogRules::hidesSizes, S>, "shows no sizes"},
    {"NC", None, "", &On<&LogRules::hidesClasses, S>, "shows no classes"},
    {"NFL", None, "", &On<&LogRules::hidesFiles, S>, "lists no files"},
    {"NDL", None, "", &On<&LogRules::hidesFolders, S>, "lists no folders"},
    {"NP", None, "", &Nothing<S>, "shows no percentages; there are none in any case"},
    {"ETA", None, "", &Nothing<S>, "shows when files arrive", "it is not shown"},
    {"LOG", Required, "file", &TakeLog, "writes the log to a file (a new one)"},
    {"LOG+", Required, "file", &TakeLogAppended, "appends the log to a file"},
    {"UNILOG", Required, "file", &TakeLog, "is /LOG; every log is UTF-8"},
    {"UNILOG+", Required, "file", &TakeLogAppended, "is /LOG+"},
    {"UNICODE", None, "", &Nothing<S>, "output is UTF-8 in any case"},
    {"TEE", None, "", &On<&LogRules::tees, S>, "writes to the log and to the console"},
    {"NJH", None, "", &On<&LogRules::hidesHeader, S>, "writes no header"},
    {"NJS", None, "", &On<&LogRules::hidesSummary, S>, "writes no summary"},

    {.help = "Jobs"},
    {"JOB", Required, "name", &ListEntry<&S::jobs, S>, "takes parameters from a job file"},
    {"SAVE", Required, "name", &TextValue<&S::savedJob, S>, "saves parameters to a job file"},
    {"QUIT", None, "", &On<&S::quits, S>, "quits after that"},
    {"NOSD", None, "", &On<&S::hasNoSource, S>, "no source is needed"},
    {"NODD", None, "", &On<&S::hasNoTarget, S>, "no destination is needed"},
    {"IF", List, "file [file]...", &ListEntry<&SelectionRules::names, S>, "copies these files only"},
    {"SD", Required, "path", &TextValue<&S::source, S>, "the source"},
    {"DD", Required, "path", &TextValue<&S::target, S>, "the destination"},

    {.help = "More"},
    {"-no-preserve-root", None, "", &On<&CopyRules::allowsProtected, S>,
     "is written --no-preserve-root: purges and moves folders of the system, too"},
    {"?", None, "", &On<&S::showsHelp, S>, "shows this"},
};

}  // namespace

RobocopySettings::RobocopySettings() {
  retries = kManyRetries;
  waitSeconds = kWaitSeconds;
}

std::span<const Switch<RobocopySettings>> RobocopySwitches() { return kRows; }
