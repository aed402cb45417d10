#pragma once

#include <string>

#include "platform/Platform.h"
#include "tools/Output.h"
#include "tools/Report.h"
#include "tools/robocopy/RobocopySettings.h"

/// Tells of a run in the layout that robocopy has: a header, folders and files with their classes, errors
/// with the system's text, and a summary.
class RobocopyReport final : public Report {
 public:
  RobocopyReport(const Platform& platform, const RobocopySettings& settings, Output& output)
      : platform_(platform), settings_(settings), output_(output) {}

  void Begin(const StringList& options, const StringList& notes);
  void End(const Totals& totals);

  void OnFolder(std::string_view folder, bool isNew, size_t files) override;
  void OnFile(std::string_view folder, std::string_view targetFolder, const FileStep& step,
              bool isCopied) override;
  void OnExtra(std::string_view folder, const ExtraStep& extra) override;
  void OnFolderMismatch(std::string_view folder) override;
  void OnError(Win32Error code, std::string_view what, std::string_view path) override;
  void OnRetry(double seconds) override;
  void OnGivenUp() override;
  void OnRefused(std::string_view line) override;

 private:
  std::string Size(uint64_t bytes) const;
  std::string Now() const;
  void FileLine(std::string_view fileClass, const FoundEntry& file, std::string_view folder);
  void FolderLine(std::string_view fileClass, std::string_view count, std::string_view folder);
  void SummaryLine(std::string_view name, const Tally& tally, bool areBytes);

  const Platform& platform_;
  const RobocopySettings& settings_;
  Output& output_;
};
