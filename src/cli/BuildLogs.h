#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cli/Arguments.h"
#include "host/log/EventQueue.h"
#include "host/log/Logs.h"

class LogFile;
class Session;
struct Project;

/// The log and the reports that the arguments ask for. Their files are opened late, so that a project which
/// cannot be used does not cost those of an earlier build.
class BuildLogs {
 public:
  BuildLogs(Session& session, const Arguments& arguments);
  ~BuildLogs();
  BuildLogs(const BuildLogs&) = delete;
  BuildLogs& operator=(const BuildLogs&) = delete;

  EventSink& Events();

  /// `handler` is called when one of them cannot be written any more. [any thread]
  void OnFailure(std::function<void()> handler) { onFailure_ = std::move(handler); }

  /// Raises EVekError when a file cannot be written, or is what the build reads or another log's.
  void Open(const Project& project);

  /// Finishes them and says on standard error what kept them from being written; false when nothing did.
  bool ReportFailures();

 private:
  std::unique_ptr<LogFile> Create(LogFormat format, const std::string& fileName, bool isReport);
  void CheckFiles(const std::string& projectFile) const;

  Session& session_;
  const Verbosity verbosity_;
  const StringList variableFiles_;
  std::function<void()> onFailure_ = [] {};
  std::vector<std::unique_ptr<LogFile>> logs_;  // the log, then the reports
  std::unique_ptr<EventQueue> queue_;           // for the reports; null for none
};
