#pragma once

#include <memory>

#include "host/log/EventSink.h"

class LogOutput;

/// The text log that shows only what failed: its title, with those above it, and its lines; and the summary.
std::unique_ptr<EventSink> CreateQuietLog(LogOutput& output, bool colours);
