#pragma once

#include <memory>

#include "host/log/EventSink.h"

class LogOutput;

enum class Verbosity { Quiet, Normal, Verbose };

struct TextLogStyle {
  Verbosity verbosity = Verbosity::Normal;
  bool colours = false;
  bool liveProgress = false;  // a progress line that is redrawn in place; for terminals
  int width = 80;             // columns, for the progress line
};

/// For people: one indented line per message, an action's title before its lines, a summary at the end.
std::unique_ptr<EventSink> CreateTextLog(LogOutput& output, const TextLogStyle& style);

/// For programs: one JSON object a line, written as it happens.
std::unique_ptr<EventSink> CreateJsonLog(LogOutput& output);

/// For CI systems: JUnit XML, one test case per execution of an action without children, written when the
/// build ends.
std::unique_ptr<EventSink> CreateJunitLog(LogOutput& output);
