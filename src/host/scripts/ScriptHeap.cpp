#include "host/scripts/ScriptHeap.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "host/scripts/EngineText.h"

namespace {

void* Allocate(void* heap, duk_size_t size) { return static_cast<ScriptHeap*>(heap)->Resize(nullptr, size); }

void* Reallocate(void* heap, void* block, duk_size_t size) {
  return static_cast<ScriptHeap*>(heap)->Resize(block, size);
}

void Free(void* heap, void* block) { static_cast<ScriptHeap*>(heap)->Resize(block, 0); }

}  // namespace

extern "C" int VekScriptInterrupted(void* heap) { return static_cast<ScriptHeap*>(heap)->PollInterrupted(); }

ScriptHeap::ScriptHeap(ScriptEnvironment& environment, size_t memoryLimit)
    : environment_(environment), limit_(memoryLimit) {
  GrantReserve();  // a heap that does not get what it needs while it is made ends the process
  root_ = duk_create_heap(Allocate, Reallocate, Free, this, nullptr);
  reserve_ = 0;
  if (!root_) throw EScriptError(OutOfMemoryText(limit_), 0);
}

/// Not through the engine, which follows all that a script has linked, over and over, for minutes at worst,
/// before it lets go of it.
ScriptHeap::~ScriptHeap() {
  for (ScriptBlock* block = blocks_.next; block != &blocks_;) std::free(std::exchange(block, block->next));
}

ScriptHeap& ScriptHeap::Of(duk_context* context) {
  duk_memory_functions functions;
  duk_get_memory_functions(context, &functions);
  return *static_cast<ScriptHeap*>(functions.udata);
}

bool ScriptHeap::PollInterrupted() noexcept {
  interrupted_ = interrupted_ || environment_.Interrupted();
  return interrupted_;
}

double ScriptHeap::AddObject(IVekScriptObject* object) {
  const auto known = std::ranges::find(objects_, object);
  const auto index = known - objects_.begin();
  if (known == objects_.end()) objects_.push_back(object);
  return firstObject_ + static_cast<double>(index);
}

IVekScriptObject* ScriptHeap::FindObject(double number) const {
  const double index = number - firstObject_;
  if (!(index >= 0) || index >= static_cast<double>(objects_.size())) return nullptr;
  return objects_[static_cast<size_t>(index)];
}

void ScriptHeap::ForgetObjects() {
  firstObject_ += static_cast<double>(objects_.size());
  objects_.clear();
}

void* ScriptHeap::Resize(void* memory, size_t size) noexcept {
  auto* block = memory ? static_cast<ScriptBlock*>(memory) - 1 : nullptr;
  const size_t before = block ? block->size : 0;
  if (size == 0) {
    if (!block) return nullptr;
    used_ -= before;
    block->previous->next = block->next;
    block->next->previous = block->previous;
    std::free(block);
    return nullptr;
  }
  const size_t room = limit_ + reserve_ - std::min(used_ - before, limit_ + reserve_);
  const bool fits = size <= room && room - size >= sizeof(ScriptBlock);
  const size_t total = size + sizeof(ScriptBlock);
  auto* moved = fits ? static_cast<ScriptBlock*>(std::realloc(block, total)) : nullptr;
  if (!moved) {
    ranOut_ = true;
    return nullptr;
  }
  if (!block) *moved = {0, blocks_.previous, &blocks_};
  used_ += total - before;
  moved->size = total;
  moved->previous->next = moved->next->previous = moved;
  return moved + 1;
}

std::string OutOfMemoryText(size_t limit) {
  const bool inMegabytes = limit >= size_t{1} << 20;
  return "the script ran out of memory (limit " +
         (inMegabytes ? std::to_string(limit >> 20) + " MB)" : std::to_string(limit >> 10) + " KB)");
}

void ThrowText(duk_context* context, duk_errcode_t code, std::string_view text) {
  // `text` may be the very slot that holds the converted text.
  std::string& message = ScriptHeap::Of(context).Call().text;
  message = ToEngineText(text);
  duk_push_error_object(context, code, "%s", message.c_str());
  duk_throw_raw(context);
  std::abort();  // never reached, which the declaration of the line above does not say
}
