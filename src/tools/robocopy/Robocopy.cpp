#include "tools/robocopy/Robocopy.h"

#include <cstdio>

#include "base/WindowsPath.h"
#include "platform/Clock.h"
#include "platform/CopyToolVariables.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/ErrorTexts.h"
#include "platform/Platform.h"
#include "tools/TreeCopy.h"
#include "tools/robocopy/JobFile.h"
#include "tools/robocopy/RobocopyReport.h"

namespace {

namespace ExitBit {
constexpr int Copied = 1, Extra = 2, Mismatched = 4, Failed = 8, Fatal = 16;
}

constexpr std::string_view kUsage =
    "              Usage :: ROBOCOPY source destination [file [file]...] [options]\n"
    "\n"
    "             source :: the folder that is copied\n"
    "        destination :: the folder that it is copied to\n"
    "               file :: files by name or wildcards, *.* by default\n"
    "\n"
    "A path that reads as a switch (/mir) is written another way (/./mir).\n";

constexpr std::string_view kCodes =
    "\nExit code, the sum of : 1 copied, 2 extra files or folders found, 4 mismatches, 8 failures, 16 "
    "fatal\n";

class Robocopy {
 public:
  Robocopy(const Platform& platform, Console& console)
      : platform_(platform), console_(console), output_(console) {}

  int Run(const StringList& arguments) {
    try {
      return ReadArguments(arguments) ? Begin() : ExitBit::Fatal;
    } catch (const SwitchError& error) {
      return Refuse("Invalid Parameter : \"" + error.argument + '"');
    }
  }

 private:
  using Reader = SwitchReader<RobocopySettings>;

  int Begin() {
    if (settings_.showsHelp) return Help();
    if (!settings_.savedJob.empty() && !SaveJob()) return ExitBit::Fatal;
    if (settings_.quits) return 0;
    if (settings_.source.empty()) return Refuse("No Source Directory Specified.");
    if (settings_.target.empty()) return Refuse("No Destination Directory Specified.");
    SetAgeLimits();
    const auto allowed = platform_.environment->Variable(kNoPreserveRootVariable);
    settings_.allowsProtected = settings_.allowsProtected || allowed.has_value();
    settings_.protectedFiles = SplitLines(platform_.environment->Variable(kProjectsVariable).value_or(""));
    return OpenLog() ? Copy() : ExitBit::Fatal;
  }

  /// Job files first, so that the command line has the last word.
  bool ReadArguments(const StringList& arguments) {
    RobocopySettings first;
    Reader probe(RobocopySwitches(), first);
    ReadWith(probe, first, arguments);
    Reader reader(RobocopySwitches(), settings_);
    for (const std::string& job : first.jobs) {
      std::string contents;
      if (!ReadJob(job, contents)) return false;
      ReadWith(reader, settings_, JobArguments(contents));
    }
    ReadWith(reader, settings_, arguments);
    options_ = reader.Options();
    notes_ = reader.Notes();
    notes_.insert(notes_.end(), settings_.notes.begin(), settings_.notes.end());
    return true;
  }

  static void ReadWith(Reader& reader, RobocopySettings& settings, const StringList& arguments) {
    int operands = 0;
    reader.Read(arguments, [&](const std::string& operand) {
      const bool isFolder = operands < 2;
      if (operand.starts_with('-') || (!isFolder && operand.starts_with('/'))) return false;
      if (isFolder) {
        (operands == 0 ? settings.source : settings.target) = operand;
      } else {
        settings.names.push_back(operand);
      }
      ++operands;
      return true;
    });
  }

  std::string JobPath(const std::string& name, bool mustExist) const {
    const bool hasExtension = NamePart(name).find('.') != std::string_view::npos;
    const bool isIt = hasExtension || (mustExist && platform_.entries->FileExists(name));
    return isIt ? name : name + ".rcj";
  }

  bool ReadJob(const std::string& name, std::string& contents) {
    const std::string path = JobPath(name, true);
    const SysResult read = platform_.contents->ReadWhole(path, contents);
    if (!read) Say(read.code, "Opening Job File", path);
    return read.ok;
  }

  bool SaveJob() {
    const std::string path = JobPath(settings_.savedJob, false);
    const SysResult saved = platform_.contents->Replace(path, JobContents(settings_, options_));
    if (!saved) Say(saved.code, "Saving Job File", path);
    return saved.ok;
  }

  bool OpenLog() {
    if (settings_.logFile.empty()) return true;
    const std::string path = platform_.environment->FullPath(settings_.logFile);
    if (!settings_.tees) output_.Line(" Log File : " + path);
    output_.Flush();
    const SysResult opened = output_.OpenLog(*platform_.contents, path, settings_.appends, settings_.tees);
    if (!opened) Say(opened.code, "Opening Log File", path);
    return opened.ok;
  }

  int Copy() {
    MakePathsFull();
    Interruption interruption;
    const auto guard = console_.OnInterrupt([&interruption] { interruption.Signal(); });
    RobocopyReport report(platform_, settings_, output_);
    report.Begin(options_, notes_);
    const Selection selection(settings_);
    const bool changesAttributes = (settings_.addedAttributes | settings_.removedAttributes) != 0 ||
                                   settings_.clearsArchive || !settings_.copiesAttributes ||
                                   !settings_.copiesData;
    settings_.looksAtAttributes = settings_.isVerbose || changesAttributes || selection.AsksForAttributes();
    Totals totals;
    {
      TreeCopy copy(platform_, selection, settings_, report, interruption);
      totals = copy.Run(settings_.source, settings_.target);
    }
    if (totals.isFatal) return ExitBit::Fatal;
    report.End(totals);
    return interruption.IsSignalled() ? kStoppedByUser : RobocopyExitCode(totals);
  }

  void MakePathsFull() {
    Environment& environment = *platform_.environment;
    const auto full = [&](std::string_view path) {
      return WithTrailingDelimiter(environment.FullPath(path), environment.PathDelimiter(""));
    };
    settings_.source = full(settings_.source);
    settings_.target = full(settings_.target);
    StringList own = settings_.jobs;
    for (std::string& job : own) job = JobPath(job, true);
    if (!settings_.logFile.empty()) own.push_back(settings_.logFile);
    if (!settings_.savedJob.empty()) own.push_back(JobPath(settings_.savedJob, false));
    for (const std::string& file : own) Keep(environment.FullPath(file));
    for (StringList* list : {&settings_.excludedFiles, &settings_.excludedFolders}) {
      for (std::string& entry : *list) {
        if (!FolderPart(entry).empty()) entry = environment.FullPath(entry);
      }
    }
  }

  /// A run's own files are not purged, by whatever name the destination is reached.
  void Keep(const std::string& file) {
    if (!settings_.purges) return;
    const auto target = platform_.entries->Identity(settings_.target);
    std::string_view above = FolderPart(file);
    while (target && !above.empty()) {
      if (platform_.entries->Identity(above) == target) {
        settings_.keptFiles.push_back(settings_.target + file.substr(above.size()));
      }
      above = FolderPart(WithoutTrailingDelimiter(above));
    }
  }

  /// Numbers from 1900 on are dates.
  void SetAgeLimits() {
    const auto limit = [this](const std::optional<uint64_t>& age) -> std::optional<double> {
      constexpr uint64_t kFirstDate = 1900;
      constexpr double kDay = 86400;
      if (!age) return {};
      if (*age < kFirstDate) {
        return ToUnixSeconds(platform_.clock->UtcNow()) - static_cast<double>(*age) * kDay;
      }
      char text[40];
      const auto date = static_cast<unsigned long long>(*age);
      std::snprintf(text, sizeof text, "%04llu-%02llu-%02llu", date / 10000, date / 100 % 100, date % 100);
      const auto local = ParseIso8601(text);
      if (!local) throw SwitchError{std::to_string(*age)};
      return ToUnixSeconds(platform_.clock->ToUtc(*local));
    };
    settings_.oldest = limit(settings_.largestAge);
    settings_.newest = limit(settings_.smallestAge);
    settings_.oldestAccess = limit(settings_.largestAccessAge);
    settings_.newestAccess = limit(settings_.smallestAccessAge);
  }

  void Say(Win32Error code, std::string_view what, const std::string& path) {
    RobocopyReport(platform_, settings_, output_).OnError(code, what, path);
  }

  int Refuse(const std::string& reason) {
    output_.Line("\nERROR : " + reason + "\n");
    output_.Line("       Simple Usage :: ROBOCOPY source destination /MIR\n");
    output_.Line("****  ROBOCOPY /? tells more.");
    return ExitBit::Fatal;
  }

  int Help() {
    output_.Line(kUsage);
    output_.Line(HelpOf(RobocopySwitches()) + std::string(kCodes));
    return 0;
  }

  static int RobocopyExitCode(const Totals& totals) {
    const auto any = [&](uint64_t Tally::*what) { return totals.files.*what + totals.folders.*what > 0; };
    return (any(&Tally::copied) ? ExitBit::Copied : 0) | (any(&Tally::extra) ? ExitBit::Extra : 0) |
           (any(&Tally::mismatched) ? ExitBit::Mismatched : 0) | (any(&Tally::failed) ? ExitBit::Failed : 0);
  }

  const Platform& platform_;
  Console& console_;
  Output output_;
  RobocopySettings settings_;
  StringList options_, notes_;
};

}  // namespace

int RunRobocopy(const StringList& arguments, const Platform& platform, Console& console) {
  return Robocopy(platform, console).Run(arguments);
}
