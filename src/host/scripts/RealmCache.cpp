#include "host/scripts/RealmCache.h"

#include <algorithm>

#include "host/scripts/ProtectedCall.h"
#include "host/scripts/Realm.h"

namespace {

constexpr duk_uarridx_t kExpressionSlot = 0;
constexpr size_t kMostRealms = 16, kMemoryPerRealm = size_t{1} << 20;

}  // namespace

RealmCache::RealmCache(ScriptHeap& heap)
    : heap_(heap), capacity_(std::clamp<size_t>(heap.MemoryLimit() / kMemoryPerRealm, 1, kMostRealms)) {}

duk_context* RealmCache::ForExpressions() {
  if (!expressions_) expressions_ = Make(kExpressionSlot, PrepareExpressionRealm);
  return expressions_;
}

duk_context* RealmCache::ForScript(std::string_view source) {
  auto found = std::ranges::find(scripts_, source, &Realm::source);
  if (found == scripts_.end()) {
    Realm realm{std::string(source), nullptr, static_cast<duk_uarridx_t>(scripts_.size() + 1)};
    if (scripts_.size() == capacity_) {
      realm.slot = scripts_.front().slot;
      scripts_.erase(scripts_.begin());
    }
    realm.context = Make(realm.slot, PrepareRealm);
    scripts_.push_back(std::move(realm));
  } else {
    std::rotate(found, found + 1, scripts_.end());
  }
  return scripts_.back().context;
}

duk_context* RealmCache::Make(duk_uarridx_t slot, void (*prepare)(duk_context*)) {
  duk_context* context = nullptr;
  ProtectedCall(heap_, heap_.Root(), [&](duk_context* root) {
    duk_push_heap_stash(root);
    duk_push_thread_new_globalenv(root);
    context = duk_get_context(root, -1);
    duk_put_prop_index(root, -2, slot);
    duk_pop(root);
  });
  ProtectedCall(heap_, context, [&](duk_context* realm) { prepare(realm); });
  return context;
}
