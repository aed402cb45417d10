#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/scripts/ScriptHeap.h"

/// The realms of a heap. A fresh realm costs as much as twenty runs of a short script, and an event may run
/// its script for every line of a file. So a script's runs share the built-in objects, and each run has
/// global variables of its own; what a script does to built-in objects no other script sees.
class RealmCache {
 public:
  explicit RealmCache(ScriptHeap& heap);

  /// These raise EScriptError when memory or time is up.
  duk_context* ForExpressions();
  duk_context* ForScript(std::string_view source);

 private:
  struct Realm {
    std::string source;
    duk_context* context = nullptr;
    duk_uarridx_t slot = 0;  // in the heap's stash, which keeps the realm alive
  };

  duk_context* Make(duk_uarridx_t slot, void (*prepare)(duk_context*));

  ScriptHeap& heap_;
  const size_t capacity_;
  duk_context* expressions_ = nullptr;
  std::vector<Realm> scripts_;  // the one used last comes last
};
