#include "host/engine/ReportedPrograms.h"

namespace {

class ReportedOutput final : public ProcessOutput {
 public:
  ReportedOutput(ProcessOutput& output, ProgramListener& listener) : output_(output), listener_(listener) {}

  void OnStdOut(std::string_view line) override {
    const Bracket bracket(listener_, ProgramStream::StdOut);
    output_.OnStdOut(line);
  }
  void OnStdErr(std::string_view line) override {
    const Bracket bracket(listener_, ProgramStream::StdErr);
    output_.OnStdErr(line);
  }
  void BeginBurst() override { output_.BeginBurst(); }
  void EndBurst() override { output_.EndBurst(); }

 private:
  struct Bracket {
    Bracket(ProgramListener& told, ProgramStream stream) : listener(told) { listener.BeginLine(stream); }
    ~Bracket() { listener.EndLine(); }
    Bracket(const Bracket&) = delete;
    Bracket& operator=(const Bracket&) = delete;
    ProgramListener& listener;
  };

  ProcessOutput& output_;
  ProgramListener& listener_;
};

/// Announces what is to be started now.
ProcessAnnouncement Announcement(ProgramListener& listener, const std::string& folder) {
  listener.BeforeProgram();
  return [&listener, folder](std::string_view commandLine) { listener.OnProgram(commandLine, folder); };
}

}  // namespace

SysResult ReportedProcesses::Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                                 int32_t& exitCode) {
  ProcessSetup announced = setup;
  announced.announce = Announcement(listener_, setup.startDirectory);
  if (!output) return real_.Run(announced, nullptr, stop, exitCode);
  ReportedOutput reported(*output, listener_);
  return real_.Run(announced, &reported, stop, exitCode);
}

SysResult ReportedProcesses::Start(const ProcessSetup& setup) {
  ProcessSetup announced = setup;
  announced.announce = Announcement(listener_, setup.startDirectory);
  return real_.Start(announced);
}

SysResult ReportedShell::Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) {
  ShellRequest announced = request;
  announced.announce = Announcement(listener_, request.folder);
  return real_.Execute(announced, process);
}
