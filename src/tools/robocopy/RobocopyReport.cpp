#include "tools/robocopy/RobocopyReport.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "platform/Clock.h"
#include "platform/ErrorTexts.h"

namespace {

constexpr std::string_view kRule =
    "-------------------------------------------------------------------------------";

// In the order of FileClass; what stands for a file that is only there when skipped comes second.
struct ClassWord {
  std::string_view word, skipped = {};
};
constexpr std::array<ClassWord, kFileClasses> kWords = {{{"New File", "lonely"},
                                                         {"Newer"},
                                                         {"Older"},
                                                         {"Changed"},
                                                         {"tweaked"},
                                                         {"same"},
                                                         {"*Mismatch"},
                                                         {"*EXTRA File"},
                                                         {"named"},
                                                         {"attrib"},
                                                         {"large"},
                                                         {"small"},
                                                         {"too old"},
                                                         {"too new"},
                                                         {"link"}}};

constexpr std::array kMonths = {"January", "February", "March",     "April",   "May",      "June",
                                "July",    "August",   "September", "October", "November", "December"};
constexpr std::array kDays = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

template <class... Values>
std::string Printed(const char* format, Values... values) {
  char text[160];
  return {text, static_cast<size_t>(std::snprintf(text, sizeof text, format, values...))};
}

/// The bytes, or from a limit on in a larger unit.
std::string Scaled(uint64_t bytes, uint64_t limit, const char* format) {
  if (bytes < limit) return std::to_string(bytes);
  double value = static_cast<double>(bytes) / 1024;
  const char* unit = "kmgtp";
  for (; value >= 1024 && unit[1] != '\0'; ++unit) value /= 1024;
  return Printed(format, value) + ' ' + *unit;
}

std::string Duration(double seconds) {
  const auto whole = static_cast<unsigned long long>(std::llround(seconds));
  return Printed("%llu:%02llu:%02llu", whole / 3600, whole / 60 % 60, whole % 60);
}

std::string ShortTime(TDateTime time) {
  const DateTimeParts p = ToParts(time);
  return Printed("%04d/%02u/%02u %02u:%02u:%02u", p.year, p.month, p.day, p.hour, p.minute, p.second);
}

std::string RightTo(size_t width, std::string_view text) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + std::string(text);
}

}  // namespace

void RobocopyReport::Begin(const StringList& options, const StringList& notes) {
  if (!settings_.hidesHeader) {
    const auto list = [this](std::string_view title, const StringList& entries) {
      for (size_t i = 0; i < entries.size(); ++i) {
        output_.Line(RightTo(9, i == 0 ? title : "") + (i == 0 ? " : " : "   ") + entries[i]);
      }
    };
    output_.Line("");
    output_.Line(kRule);
    output_.Line("   ROBOCOPY     ::     Robust File Copy");
    output_.Line(kRule);
    output_.Line("");
    output_.Line("  Started : " + Now());
    output_.Line("   Source : " + settings_.source);
    output_.Line("     Dest : " + settings_.target);
    output_.Line("");
    list("Files", settings_.names.empty() ? StringList{"*.*"} : settings_.names);
    list("Exc Files", settings_.excludedFiles);
    list("Exc Dirs", settings_.excludedFolders);
    output_.Line("");
    output_.Line("  Options : " + JoinLines(options, " "));
    output_.Line("");
    output_.Line(kRule);
    output_.Line("");
  }
  for (const std::string& note : notes) output_.Line("NOTE : " + note);
}

void RobocopyReport::End(const Totals& totals) {
  if (!settings_.hidesSummary) {
    output_.Line("");
    output_.Line(kRule);
    output_.Line("");
    output_.Line("               Total    Copied   Skipped  Mismatch    FAILED    Extras");
    SummaryLine("Dirs", totals.folders, false);
    SummaryLine("Files", totals.files, false);
    SummaryLine("Bytes", totals.bytes, true);
    const std::string time = RightTo(10, Duration(totals.copySeconds)), none = RightTo(10, Duration(0));
    output_.Line("   Times :" + time + time + std::string(20, ' ') + none + none);
    if (totals.bytes.copied > 0 && totals.copySeconds > 0) {
      const double speed = static_cast<double>(totals.bytes.copied) / totals.copySeconds;
      output_.Line("   Speed :" + RightTo(20, Printed("%.0f", speed)) + " Bytes/sec.");
    }
    output_.Line("   Ended : " + Now());
    output_.Line("");
  }
  output_.Flush();
}

void RobocopyReport::SummaryLine(std::string_view name, const Tally& tally, bool areBytes) {
  std::string line = RightTo(8, name) + " :";
  const uint64_t limit = areBytes && !settings_.showsBytes ? 1024 : UINT64_MAX;
  for (const uint64_t count :
       {tally.total, tally.copied, tally.skipped, tally.mismatched, tally.failed, tally.extra}) {
    line += RightTo(10, Scaled(count, limit, "%.2f"));
  }
  output_.Line(line);
}

void RobocopyReport::OnFolder(std::string_view folder, bool isNew, size_t files) {
  if (!settings_.hidesFolders) FolderLine(isNew ? "New Dir" : "", std::to_string(files), folder);
}

void RobocopyReport::OnFile(std::string_view folder, std::string_view /*targetFolder*/, const FileStep& step,
                            bool isCopied) {
  const bool isTold = isCopied || settings_.isVerbose || step.fileClass == FileClass::Mismatch;
  if (!isTold || settings_.hidesFiles) return;
  const ClassWord& word = kWords[static_cast<size_t>(step.fileClass)];
  FileLine(isCopied || word.skipped.empty() ? word.word : word.skipped, step.file, folder);
}

void RobocopyReport::OnExtra(std::string_view folder, const ExtraStep& extra) {
  if (!extra.isSelected && !settings_.listsExtras) return;
  if (!extra.IsFolder()) {
    if (!settings_.hidesFiles) {
      FileLine(kWords[static_cast<size_t>(FileClass::Extra)].word, extra.entry, folder);
    }
  } else if (!settings_.hidesFolders) {
    FolderLine("*EXTRA Dir", "-1", std::string(folder) + extra.entry.name + folder.back());
  }
}

void RobocopyReport::OnFolderMismatch(std::string_view folder) {
  if (!settings_.hidesFolders) FolderLine("*Mismatch", "", folder);
}

void RobocopyReport::FileLine(std::string_view fileClass, const FoundEntry& file, std::string_view folder) {
  constexpr size_t kClassWidth = 14;
  std::string line = "\t";
  if (!settings_.hidesClasses) {
    const size_t before = fileClass.starts_with('*') ? 2 : 4;
    std::string word = std::string(before, ' ') + std::string(fileClass);
    line += word.append(word.size() < kClassWidth ? kClassWidth - word.size() : 0, ' ') + "\t\t";
  }
  if (!settings_.hidesSizes) line += RightTo(8, Size(file.size));
  if (settings_.showsTimes) line += ' ' + ShortTime(FromUnixSeconds(file.lastWrite));
  if (!settings_.hidesSizes || settings_.showsTimes) line += '\t';
  if (settings_.showsFullPaths) line += folder;
  output_.Line(line += file.name);
}

void RobocopyReport::FolderLine(std::string_view fileClass, std::string_view count, std::string_view folder) {
  std::string line = "\t";
  if (!settings_.hidesClasses) {
    std::string word = (fileClass.starts_with('*') ? "" : "  ") + std::string(fileClass);
    line += word.append(word.size() < 11 ? 11 - word.size() : 0, ' ');
  }
  if (!settings_.hidesSizes) line += RightTo(9, count);
  output_.Line(line.append("\t").append(folder));
}

void RobocopyReport::OnError(Win32Error code, std::string_view what, std::string_view path) {
  const auto number = static_cast<unsigned>(code);
  output_.Line(ShortTime(platform_.clock->LocalNow()) + Printed(" ERROR %u (0x%08X) ", number, number) +
               std::string(what) + ' ' + std::string(path));
  output_.Line(platform_.errorTexts->Text(code));
  output_.Flush();
}

void RobocopyReport::OnRetry(double seconds) {
  output_.Line("Waiting " + std::to_string(std::llround(seconds)) + " seconds... Retrying...");
  output_.Flush();
}

void RobocopyReport::OnGivenUp() { output_.Line("ERROR: RETRY LIMIT EXCEEDED."); }

void RobocopyReport::OnRefused(std::string_view line) {
  output_.Line(line);
  output_.Flush();
}

std::string RobocopyReport::Size(uint64_t bytes) const {
  constexpr uint64_t kMega = uint64_t{1} << 20;
  return Scaled(bytes, settings_.showsBytes ? UINT64_MAX : kMega, "%.1f");
}

std::string RobocopyReport::Now() const {
  const DateTimeParts p = ToParts(platform_.clock->LocalNow());
  const unsigned hour = p.hour % 12 == 0 ? 12 : p.hour % 12;
  return Printed("%s, %s %u, %d %u:%02u:%02u %s", kDays[p.weekday - 1], kMonths[p.month - 1], p.day, p.year,
                 hour, p.minute, p.second, p.hour < 12 ? "AM" : "PM");
}
