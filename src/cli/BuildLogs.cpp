#include "cli/BuildLogs.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "cli/Session.h"
#include "coreapi/Vekerrors.h"
#include "host/log/LogOutput.h"
#include "host/project/Project.h"
#include "host/project/Quoted.h"
#include "platform/Console.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/ErrorTexts.h"

namespace {

/// What is written to these goes nowhere, however many write.
constexpr std::string_view kNowhere[] = {"/dev/null", "NUL"};

std::unique_ptr<EventSink> CreateLog(LogFormat format, LogOutput& output, const TextLogStyle& style) {
  switch (format) {
    case LogFormat::Jsonl:
      return CreateJsonLog(output);
    case LogFormat::Junit:
      return CreateJunitLog(output);
    case LogFormat::Text:
      break;
  }
  return CreateTextLog(output, style);
}

}  // namespace

/// One of the logs, with what it is written to.
class LogFile final : private OutputStream {
 public:
  LogFile(Session& session, std::string what, std::string fileName, LogFormat format,
          const TextLogStyle& style, std::function<void()> onFailure)
      : fileName(std::move(fileName)),
        session_(session),
        what_(std::move(what)),
        output_(*this, std::move(onFailure)),
        events_(CreateLog(format, output_, style)) {}

  const std::string fileName;  // empty: standard output

  EventSink& Events() { return *events_; }

  /// The start of every complaint.
  std::string CannotWrite() const {
    return "cannot write the " + what_ + (fileName.empty() ? "" : " " + OneLine(fileName)) + ": ";
  }

  void Open() {
    target_ = &session_.GetConsole().StandardOutput();
    if (!fileName.empty()) {
      SysResult opened;
      file_ = session_.GetConsole().OpenFile(fileName, opened);
      if (!file_) throw EVekError(CannotWrite() + ErrorText(opened.code));
      target_ = file_.get();
    }
    if (!early_.empty()) output_.Write(std::exchange(early_, {}));
  }

  bool ReportFailure() const {
    if (!output_.Failed()) return false;
    std::cerr << "vekrun: " << CannotWrite() << ErrorText(output_.FailureCode()) << '\n';
    return true;
  }

 private:
  SysResult Write(std::string_view bytes) override {
    if (target_) return target_->Write(bytes);
    early_ += bytes;
    return {};
  }
  bool CanRewrite() override { return target_ && target_->CanRewrite(); }
  SysResult WriteAt(uint64_t position, std::string_view bytes) override {
    return target_->WriteAt(position, bytes);
  }

  std::string ErrorText(Win32Error code) const { return session_.GetPlatform().errorTexts->Text(code); }

  Session& session_;
  const std::string what_;
  std::unique_ptr<OutputStream> file_;
  OutputStream* target_ = nullptr;
  std::string early_;  // what the scripts of declared variables log, before there is a target
  LogOutput output_;
  std::unique_ptr<EventSink> events_;
};

BuildLogs::BuildLogs(Session& session, const Arguments& arguments)
    : session_(session),
      verbosity_(arguments.quiet     ? Verbosity::Quiet
                 : arguments.verbose ? Verbosity::Verbose
                                     : Verbosity::Normal),
      variableFiles_(arguments.variableFiles) {
  logs_.push_back(Create(arguments.logFormat, arguments.logFile, false));
  std::vector<EventSink*> reports;
  for (const auto& [format, fileName] : arguments.reports) {
    logs_.push_back(Create(format, fileName, true));
    reports.push_back(&logs_.back()->Events());
  }
  if (!reports.empty()) queue_ = std::make_unique<EventQueue>(logs_[0]->Events(), std::move(reports));
}

BuildLogs::~BuildLogs() { queue_.reset(); }

EventSink& BuildLogs::Events() { return queue_ ? static_cast<EventSink&>(*queue_) : logs_[0]->Events(); }

std::unique_ptr<LogFile> BuildLogs::Create(LogFormat format, const std::string& fileName, bool isReport) {
  const bool terminal = fileName.empty() && session_.GetConsole().OutputIsTerminal();
  TextLogStyle style;
  // A report is there to be looked up later.
  style.verbosity = isReport && verbosity_ == Verbosity::Quiet ? Verbosity::Normal : verbosity_;
  style.liveProgress = terminal;
  style.colours = terminal && !session_.GetPlatform().environment->Variable("NO_COLOR");
  style.width = terminal ? session_.GetConsole().OutputWidth() : style.width;
  return std::make_unique<LogFile>(session_, isReport ? "report" : "log", fileName, format, style,
                                   [this] { onFailure_(); });
}

void BuildLogs::Open(const Project& project) {
  CheckFiles(project.fileName);
  for (size_t i = 0; i < logs_.size(); ++i) {
    logs_[i]->Open();
    // Only now that it is there can links tell that another is the same.
    if (i + 1 < logs_.size()) CheckFiles(project.fileName);
  }
  if (queue_) queue_->Start();
}

/// No file may be one that the build reads or another's file, by whatever name.
void BuildLogs::CheckFiles(const std::string& projectFile) const {
  const Platform& platform = session_.GetPlatform();
  const auto isSame = [&platform](const std::string& one, const std::string& other) {
    if (std::ranges::find(kNowhere, one) != std::end(kNowhere)) return false;
    const auto identity = platform.entries->Identity(one);
    return platform.environment->FullPath(one) == platform.environment->FullPath(other) ||
           (identity && identity == platform.entries->Identity(other));
  };
  for (auto log = logs_.begin(); log != logs_.end(); ++log) {
    const std::string& file = (*log)->fileName;
    if (file.empty()) continue;
    if (!projectFile.empty() && isSame(file, projectFile)) {
      throw EVekError((*log)->CannotWrite() + "it is the project");
    }
    for (const std::string& variables : variableFiles_) {
      if (isSame(file, variables)) throw EVekError((*log)->CannotWrite() + "variables are read from it");
    }
    for (auto other = logs_.begin(); other != log; ++other) {
      const std::string& otherFile = (*other)->fileName;
      if (otherFile.empty() || !isSame(file, otherFile)) continue;
      throw EVekError((*log)->CannotWrite() + "it is the " + (other == logs_.begin() ? "log" : "report") +
                      " " + otherFile);
    }
  }
}

bool BuildLogs::ReportFailures() {
  queue_.reset();
  bool failed = false;
  for (const auto& log : logs_) failed |= log->ReportFailure();
  return failed;
}
