#include "tools/xcopy/Xcopy.h"

#include <algorithm>

#include "base/WindowsPath.h"
#include "platform/Clock.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/ErrorTexts.h"
#include "platform/Folders.h"
#include "platform/Platform.h"
#include "platform/ProtectedFolders.h"
#include "tools/Output.h"
#include "tools/TreeCopy.h"
#include "tools/xcopy/XcopySettings.h"

namespace {

enum ExitCode { kDone = 0, kNothingFound = 1, kStopped = 2, kCannotBegin = 4, kFailed = 5 };

constexpr std::string_view kUsage = "XCOPY source [destination] [switches]\n";

constexpr std::string_view kCodes =
    "\nExit code : 0 done, 1 no files found, 2 stopped, 4 could not begin, 5 a file could not be copied\n";

class XcopyReport final : public Report {
 public:
  XcopyReport(const Platform& platform, const XcopySettings& settings, Output& output)
      : platform_(platform), settings_(settings), output_(output) {}

  void OnFolder(std::string_view, bool, size_t files) override { found_ += files; }
  void OnFile(std::string_view folder, std::string_view targetFolder, const FileStep& step,
              bool isCopied) override {
    if (!isCopied || settings_.isQuiet) return;
    std::string line = std::string(folder) + step.file.name;
    if (settings_.showsFullNames) line.append(" -> ").append(targetFolder).append(step.target);
    output_.Line(line);
  }
  void OnExtra(std::string_view, const ExtraStep&) override {}
  void OnFolderMismatch(std::string_view folder) override {
    output_.Line("Unable to create directory - " + std::string(WithoutTrailingDelimiter(folder)));
  }
  void OnError(Win32Error code, std::string_view, std::string_view path) override {
    output_.Line(platform_.errorTexts->Text(code) + " - " + std::string(path));
  }
  void OnRetry(double) override {}
  void OnGivenUp() override {}
  void OnRefused(std::string_view line) override { output_.Line(line); }

  /// Files of the names that are meant, copied or not.
  uint64_t Found() const { return found_; }

 private:
  const Platform& platform_;
  const XcopySettings& settings_;
  Output& output_;
  uint64_t found_ = 0;
};

class Xcopy {
 public:
  Xcopy(const Platform& platform, Console& console)
      : platform_(platform), console_(console), output_(console) {}

  int Run(const StringList& arguments) {
    try {
      Read(arguments);
    } catch (const SwitchError& error) {
      return Refuse("Invalid switch - " + error.argument);
    }
    if (settings_.showsHelp) return Help();
    if (settings_.source.empty()) return Refuse("Invalid number of parameters");
    for (const std::string& note : notes_) output_.Line("NOTE : " + note);
    if (!SetSource() || !ReadExclusions()) return kCannotBegin;
    settings_.target = Full(settings_.target.empty() ? "." : settings_.target);
    if (settings_.entersFolders && IsCyclic()) return Refuse("Cannot perform a cyclic copy");
    return Copy();
  }

 private:
  using Reader = SwitchReader<XcopySettings>;

  void Read(const StringList& arguments) {
    Reader reader(XcopySwitches(), settings_);
    int operands = 0;
    reader.Read(Separated(reader, arguments), [&](const std::string& operand) {
      if (operands >= 2) return false;
      (operands++ == 0 ? settings_.source : settings_.target) = operand;
      return true;
    });
    notes_ = reader.Notes();
  }

  /// Switches may be written without blanks between them, as in "/s/e/y".
  static StringList Separated(const Reader& reader, const StringList& arguments) {
    StringList separated;
    for (const std::string& argument : arguments) {
      StringList pieces = argument.starts_with('/') ? SplitAt(argument.substr(1), "/") : StringList{};
      for (std::string& piece : pieces) piece.insert(0, 1, '/');
      const auto isSwitch = [&](const std::string& piece) { return reader.Find(piece) != nullptr; };
      const bool areSwitches = pieces.size() > 1 && std::ranges::all_of(pieces, isSwitch);
      separated.insert(separated.end(), areSwitches ? pieces.begin() : pieces.end(), pieces.end());
      if (!areSwitches) separated.push_back(argument);
    }
    return separated;
  }

  std::string Full(std::string_view path) const {
    Environment& environment = *platform_.environment;
    return WithTrailingDelimiter(environment.FullPath(path), environment.PathDelimiter(""));
  }

  /// The source is a folder, or files in one.
  bool SetSource() {
    const std::string given = settings_.source;
    std::string_view folder = given;
    if (!platform_.folders->Exists(given)) {
      folder = FolderPart(given).empty() ? "." : FolderPart(given);
      settings_.names = {std::string(NamePart(given))};
      const bool isThere = HasWildcards(given) || platform_.entries->FileExists(given);
      if (!isThere || !platform_.folders->Exists(folder)) {
        output_.Line("File not found - " + given);
        output_.Line("0 File(s) copied");
        return false;
      }
    }
    settings_.source = Full(folder);
    if (settings_.changedSince) {
      settings_.oldest = ToUnixSeconds(platform_.clock->ToUtc(*settings_.changedSince));
    }
    return true;
  }

  bool ReadExclusions() {
    const char delimiter = platform_.environment->PathDelimiter("");
    for (const std::string& file : settings_.exclusionFiles) {
      std::string contents;
      const SysResult read = platform_.contents->ReadWhole(file, contents);
      if (!read) {
        output_.Line("Can't read file: " + file);
        output_.Line(platform_.errorTexts->Text(read.code));
        return false;
      }
      for (const std::string& line : SplitLines(contents)) {
        if (!Trim(line).empty()) settings_.excludedTexts.push_back(WithDelimiters(line, delimiter));
      }
    }
    return true;
  }

  bool IsCyclic() const {
    const auto source = platform_.entries->Identity(settings_.source);
    return source == platform_.entries->Identity(settings_.target) ||
           HoldsFolder(platform_, settings_.source, settings_.target);
  }

  int Copy() {
    Interruption interruption;
    const auto guard = console_.OnInterrupt([&interruption] { interruption.Signal(); });
    XcopyReport report(platform_, settings_, output_);
    const Selection selection(settings_);
    const Totals totals = TreeCopy(platform_, selection, settings_, report, interruption)
                              .Run(settings_.source, settings_.target);
    if (report.Found() == 0 && !settings_.names.empty()) {
      output_.Line("File not found - " + settings_.names.front());
    }
    if (settings_.copiesFiles) {
      output_.Line(std::to_string(totals.files.copied) +
                   (settings_.listsOnly ? " File(s)" : " File(s) copied"));
    }
    if (interruption.IsSignalled()) return kStopped;
    if (totals.isFatal || totals.files.failed + totals.folders.failed + totals.files.mismatched > 0) {
      return kFailed;
    }
    return report.Found() == 0 && !settings_.names.empty() ? kNothingFound : kDone;
  }

  int Refuse(const std::string& reason) {
    output_.Line(reason);
    output_.Line("XCOPY /? tells more.");
    return kCannotBegin;
  }

  int Help() {
    output_.Line(std::string(kUsage) + HelpOf(XcopySwitches()) + std::string(kCodes));
    return kDone;
  }

  const Platform& platform_;
  Console& console_;
  Output output_;
  XcopySettings settings_;
  StringList notes_;
};

}  // namespace

int RunXcopy(const StringList& arguments, const Platform& platform, Console& console) {
  return Xcopy(platform, console).Run(arguments);
}
