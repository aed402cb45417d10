#include "host/scripts/ProtectedCall.h"

#include <charconv>
#include <cstddef>

#include "host/scripts/Border.h"
#include "host/scripts/ScriptEngine.h"

namespace {

/// The smallest stack that a main thread gets anywhere has 2 MB; the host needs the rest.
constexpr ptrdiff_t kMostStack = ptrdiff_t{1} << 20;

/// Where the stack stood when the thread's outermost script began; null while none runs.
thread_local const char* stackStart = nullptr;

const char* StackPosition() { return static_cast<const char*>(__builtin_frame_address(0)); }

class StackMark {
 public:
  StackMark() : isOutermost_(!stackStart) {
    if (isOutermost_) stackStart = StackPosition();
  }
  ~StackMark() {
    if (isOutermost_) stackStart = nullptr;
  }
  StackMark(const StackMark&) = delete;
  StackMark& operator=(const StackMark&) = delete;

 private:
  const bool isOutermost_;
};

class EngineTurn {
 public:
  explicit EngineTurn(ScriptEnvironment& environment) : environment_(environment) {
    environment_.EnterEngine();
  }
  ~EngineTurn() { environment_.LeaveEngine(); }
  EngineTurn(const EngineTurn&) = delete;
  EngineTurn& operator=(const EngineTurn&) = delete;

 private:
  ScriptEnvironment& environment_;
};

struct Work {
  void (*run)(duk_context*, void*);
  void* data;
};

struct Failure {
  std::string text = "the script failed";
  std::string stack;
};

duk_ret_t RunWork(duk_context* context, void* data) {
  const Work& work = *static_cast<Work*>(data);
  work.run(context, work.data);
  return 0;
}

/// The error may be any value, and reading it may run code of the script, which may fail again.
duk_ret_t Describe(duk_context* context, void* data) {
  Failure& failure = *static_cast<Failure*>(data);
  duk_dup(context, -1);
  duk_to_string(context, -1);
  failure.text = TakeText(context, -1);
  duk_pop(context);
  if (duk_is_error(context, -1)) {
    duk_get_prop_string(context, -1, "stack");
    failure.stack = TakeText(context, -1);
  }
  return 0;
}

/// The name that the engine's message says is undefined; empty for other messages.
std::string UnknownName(std::string_view message) {
  constexpr std::string_view kBefore = "ReferenceError: identifier '", kAfter = "' undefined";
  if (!message.starts_with(kBefore) || !message.ends_with(kAfter)) return {};
  message.remove_prefix(kBefore.size());
  return std::string(message.substr(0, message.size() - kAfter.size()));
}

/// The line in the innermost frame of the script; 0 when there is none.
int LineIn(std::string_view stack) {
  static const std::string kMark = std::string("(") + kScriptName + ":";
  const size_t mark = stack.find(kMark);
  int line = 0;
  if (mark != std::string_view::npos) {
    const std::string_view digits = stack.substr(mark + kMark.size());
    std::from_chars(digits.data(), digits.data() + digits.size(), line);
  }
  return line;
}

/// Takes the error off the stack and raises what it means.
[[noreturn]] void RaiseFailure(ScriptHeap& heap, duk_context* context) {
  Failure failure;
  heap.GrantReserve();
  duk_safe_call(context, Describe, &failure, 1, 1);
  duk_set_top(context, 0);
  const int line = LineIn(failure.stack);
  const auto mentions = [&](std::string_view text) { return failure.text.find(text) != std::string::npos; };
  if (heap.Interrupted()) throw EScriptError("the script was interrupted", line);
  if (heap.RanOut() && (mentions("alloc failed") || mentions("DoubleError"))) {
    throw EScriptError(OutOfMemoryText(heap.MemoryLimit()), line);
  }
  throw EScriptError(failure.text, line, UnknownName(failure.text));
}

}  // namespace

extern "C" int VekScriptStackFull() { return stackStart && stackStart - StackPosition() > kMostStack; }

void ProtectedCall(ScriptHeap& heap, duk_context* context, void (*run)(duk_context*, void*), void* data) {
  const StackMark mark;
  const EngineTurn turn(heap.Environment());
  Work work{run, data};
  if (duk_safe_call(context, RunWork, &work, 0, 1) != DUK_EXEC_SUCCESS) RaiseFailure(heap, context);
  duk_set_top(context, 0);
}
