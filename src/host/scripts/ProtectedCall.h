#pragma once

#include "host/scripts/ScriptHeap.h"

/// Runs `work` where errors of the engine are caught; one becomes an EScriptError. `work` keeps values with a
/// destructor outside of its frames.
void ProtectedCall(ScriptHeap& heap, duk_context* context, void (*work)(duk_context*, void*), void* data);

template <class Work>
void ProtectedCall(ScriptHeap& heap, duk_context* context, const Work& work) {
  const auto call = [](duk_context* inner, void* data) { (*static_cast<const Work*>(data))(inner); };
  ProtectedCall(heap, context, call, const_cast<Work*>(&work));
}

/// The name under which scripts are compiled; lines of other code do not count in error reports.
inline constexpr const char* kScriptName = "script";
