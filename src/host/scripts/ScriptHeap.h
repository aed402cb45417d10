#pragma once

#include <cstddef>
#include <cstdint>
#include <duktape.h>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "coreapi/Vekvariant.h"
#include "host/scripts/ScriptEngine.h"

/// The C++ values of a call between a script and the host. An error in the engine jumps over the frames up to
/// the next protected call without running destructors, so such values never live in a frame between the two.
struct HostCall {
  std::string name, text;
  std::vector<Variant> arguments;
  Variant result;
};

/// Stands before every block that the engine has; together they are a ring, so that they can go at once.
struct alignas(std::max_align_t) ScriptBlock {
  size_t size = 0;
  ScriptBlock* previous = this;
  ScriptBlock* next = this;
};

/// One heap of the engine: bounded memory, interruption, and what its scripts may reach of the host.
class ScriptHeap {
 public:
  /// Raises EScriptError when the engine does not fit into the memory.
  ScriptHeap(ScriptEnvironment& environment, size_t memoryLimit);
  ~ScriptHeap();
  ScriptHeap(const ScriptHeap&) = delete;
  ScriptHeap& operator=(const ScriptHeap&) = delete;

  static ScriptHeap& Of(duk_context* context);

  duk_context* Root() const { return root_; }
  ScriptEnvironment& Environment() { return environment_; }
  HostCall& Call() { return call_; }
  size_t MemoryLimit() const { return limit_; }

  /// Asks the environment; once true it stays true, so that no script can catch its end and go on.
  bool PollInterrupted() noexcept;
  bool Interrupted() const { return interrupted_; }

  /// A request for memory was refused.
  bool RanOut() const { return ranOut_; }

  /// Room beyond the limit, to make the heap and to describe the failure of a script that used up all memory.
  void GrantReserve() { reserve_ = size_t{1} << 20; }

  // Host objects that the running script may use. Scripts hold numbers, not pointers, so that an object kept
  // beyond the end of its run is refused. Numbers are never used twice.
  double AddObject(IVekScriptObject* object);
  IVekScriptObject* FindObject(double number) const;  // null: no longer valid
  void ForgetObjects();

  // What the engine allocates through.
  void* Resize(void* memory, size_t size) noexcept;

 private:
  ScriptEnvironment& environment_;
  const size_t limit_;
  size_t reserve_ = 0;
  size_t used_ = 0;
  bool ranOut_ = false;
  bool interrupted_ = false;
  double firstObject_ = 1;
  std::vector<IVekScriptObject*> objects_;
  HostCall call_;
  ScriptBlock blocks_;
  duk_context* root_ = nullptr;
};

/// The message for a script that used up its memory.
std::string OutOfMemoryText(size_t limit);

/// Pushes the text of an error and throws it to the script.
[[noreturn]] void ThrowText(duk_context* context, duk_errcode_t code, std::string_view text);

/// Outside of the engine, in the midst of a script.
class HostTurn {
 public:
  explicit HostTurn(ScriptHeap& heap) : environment_(heap.Environment()) { environment_.LeaveEngine(); }
  ~HostTurn() { environment_.EnterEngine(); }
  HostTurn(const HostTurn&) = delete;
  HostTurn& operator=(const HostTurn&) = delete;

 private:
  ScriptEnvironment& environment_;
};

/// Runs code of the host, which must not call the engine; its exceptions become errors of the script.
template <class Work>
void CallHost(duk_context* context, const Work& work) {
  ScriptHeap& heap = ScriptHeap::Of(context);
  std::string& message = heap.Call().text;
  bool failed = true;
  try {
    const HostTurn turn(heap);
    work();
    failed = false;
  } catch (const std::exception& error) {
    message = error.what();
  } catch (...) {
    message = "unknown error";
  }
  if (failed) ThrowText(context, DUK_ERR_ERROR, message);
}
