#pragma once

#include "platform/PlatformTest.h"
#include "platform/Processes.h"
#include "support/TestChild.h"

class ProcessesTest : public PlatformTest {
 protected:
  /// Runs a program to its end and answers its exit code; -1 when it does not start, with `started` telling
  /// why not.
  int32_t Run(const ProcessSetup& setup) {
    output = {};
    return Receive(setup);
  }
  int32_t Run(const std::string& program, const std::string& parameters = "") {
    return Run(ProcessSetup{.program = program, .parameters = parameters});
  }
  int32_t RunChild(const std::string& parameters) { return Run(TestChild(), parameters); }

  /// The same, stopped at the line that begins with the word.
  int32_t RunAndStopAt(const std::string& word, const std::string& program, const std::string& parameters) {
    output = {};
    output.atLine = [this, word](std::string_view line) {
      if (line.starts_with(word)) stop.Signal();
    };
    return Receive({.program = program, .parameters = parameters});
  }

  Processes& processes = *owner->Get().processes;
  RecordedOutput output;
  StopEvent stop;
  SysResult started;

 private:
  int32_t Receive(const ProcessSetup& setup) {
    int32_t exitCode = -1;
    started = processes.Run(setup, &output, stop, exitCode);
    return started ? exitCode : -1;
  }
};
