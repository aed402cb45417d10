#include "host/scripts/Realm.h"

#include "host/scripts/Border.h"
#include "host/scripts/ObjectProxies.h"
#include "host/scripts/ScriptEngine.h"
#include "host/scripts/ScriptHeap.h"
#include "host/scripts/VekObject.h"

namespace {

constexpr const char* kBuiltIns = "builtIns";  // in the thread's stash: the global object as it was made

/// Built-in names beyond the language: engine internals, a clock, and names that variables may have.
constexpr const char* kUnwanted[] = {"Duktape", "CBOR", "performance", "global"};

/// Freezes the constructors and prototypes; the single functions are left out, which makes it 25 times as
/// fast.
constexpr const char* kFreezeBuiltIns = R"((function (global) {
  function freeze(value) {
    if (Object(value) !== value || Object.isFrozen(value)) return;
    Object.freeze(value);
    freeze(Object.getPrototypeOf(value));
    freeze(value.prototype);
  }
  var names = Object.getOwnPropertyNames(global);
  for (var i = 0; i < names.length; ++i) freeze(global[names[i]]);
})(this))";

/// The value of the variable that a name stands for, or null when the name is built in or unknown.
const Variant* FindVariable(duk_context* context, duk_idx_t builtIns, duk_idx_t name) {
  if (duk_is_symbol(context, name)) return nullptr;
  duk_dup(context, name);
  if (duk_has_prop(context, builtIns)) return nullptr;
  ScriptHeap& heap = ScriptHeap::Of(context);
  const Variant* value = nullptr;
  heap.Call().name = TakeText(context, name);
  CallHost(context, [&] { value = heap.Environment().FindVariable(heap.Call().name); });
  return value;
}

duk_ret_t HasName(duk_context* context) {
  const bool isVariable = FindVariable(context, 0, 1) != nullptr;
  duk_dup(context, 1);
  duk_push_boolean(context, isVariable || duk_has_prop(context, 0));
  return 1;
}

duk_ret_t GetName(duk_context* context) {
  if (const Variant* value = FindVariable(context, 0, 1)) {
    PushValue(context, *value);
  } else {
    duk_dup(context, 1);
    duk_get_prop(context, 0);
  }
  return 1;
}

duk_ret_t RefuseSet(duk_context* context) {
  HostCall& call = ScriptHeap::Of(context).Call();
  call.name = "an expression cannot assign to \"" + TakeText(context, 1) + "\"";
  ThrowText(context, DUK_ERR_TYPE_ERROR, call.name);
}

constexpr duk_function_list_entry kNameTraps[] = {
    {"has", HasName, 2}, {"get", GetName, 3}, {"set", RefuseSet, 4}, {nullptr, nullptr, 0}};

void PutConstants(duk_context* context, duk_idx_t target) {
  ScriptHeap& heap = ScriptHeap::Of(context);
  const std::vector<std::pair<std::string, Variant>>* constants = nullptr;
  CallHost(context, [&] { constants = &heap.Environment().Constants(); });
  for (const auto& [name, value] : *constants) {
    PushText(context, name);
    PushValue(context, value);
    duk_put_prop(context, target);
  }
}

}  // namespace

void PrepareRealm(duk_context* context) {
  PrepareDates(context);
  PrepareObjectProxies(context);
  duk_push_thread_stash(context, context);
  duk_push_global_object(context);
  const duk_idx_t builtIns = duk_get_top_index(context);
  for (const char* name : kUnwanted) duk_del_prop_string(context, builtIns, name);
  // Makes strings of raw bytes, with which scripts could name the engine's hidden properties.
  duk_get_prop_string(context, builtIns, "String");
  duk_del_prop_string(context, -1, "fromBufferRaw");
  duk_pop(context);
  PushVekObject(context);
  duk_put_prop_string(context, builtIns, "Vek");
  PutConstants(context, builtIns);
  duk_put_prop_string(context, -2, kBuiltIns);
  duk_pop(context);
}

void PrepareExpressionRealm(duk_context* context) {
  PrepareRealm(context);
  duk_eval_string_noresult(context, kFreezeBuiltIns);
  duk_push_global_object(context);
  duk_push_object(context);
  duk_put_function_list(context, -1, kNameTraps);
  duk_push_proxy(context, 0);
  duk_set_global_object(context);
}

void RenewGlobals(duk_context* context) {
  duk_push_object(context);
  duk_dup_top(context);
  duk_put_prop_string(context, -2, "globalThis");
  duk_push_thread_stash(context, context);
  duk_get_prop_string(context, -1, kBuiltIns);
  duk_remove(context, -2);
  duk_set_prototype(context, -2);
  duk_set_global_object(context);
}
