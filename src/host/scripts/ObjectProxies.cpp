#include "host/scripts/ObjectProxies.h"

#include "coreapi/Vekerrors.h"
#include "coreapi/Vekscripts.h"
#include "host/scripts/Border.h"
#include "host/scripts/ScriptHeap.h"

namespace {

constexpr const char* kHandler = "objectHandler";             // in the thread's stash
constexpr const char* kNumber = DUK_HIDDEN_SYMBOL("object");  // of a proxy's target and of a method
constexpr const char* kMethod = DUK_HIDDEN_SYMBOL("method");  // the name of a method

IVekScriptObject& ObjectOf(duk_context* context, duk_idx_t holder) {
  duk_get_prop_string(context, holder, kNumber);
  IVekScriptObject* object = ScriptHeap::Of(context).FindObject(duk_get_number(context, -1));
  duk_pop(context);
  if (!object) ThrowText(context, DUK_ERR_TYPE_ERROR, "the object belongs to a script that has ended");
  return *object;
}

duk_ret_t CallMethod(duk_context* context) {
  HostCall& call = ScriptHeap::Of(context).Call();
  const duk_idx_t count = duk_get_top(context);
  for (duk_idx_t i = 0; i < count; ++i) MakePortable(context, i);
  duk_push_current_function(context);
  IVekScriptObject& object = ObjectOf(context, -1);
  duk_get_prop_string(context, -1, kMethod);

  call.name = TakeText(context, -1);
  CallHost(context, [&] {
    call.arguments.clear();
    for (duk_idx_t i = 0; i < count; ++i) call.arguments.push_back(TakeValue(context, i));
    call.result = object.Call(call.name, call.arguments);
  });
  PushValue(context, call.result);
  return 1;
}

void PushMethod(duk_context* context, duk_idx_t target, duk_idx_t name) {
  duk_push_c_function(context, CallMethod, DUK_VARARGS);
  duk_get_prop_string(context, target, kNumber);
  duk_put_prop_string(context, -2, kNumber);
  duk_dup(context, name);
  duk_put_prop_string(context, -2, kMethod);
}

/// What the object does not know comes from the target, an empty object: toString and the like.
duk_ret_t Get(duk_context* context) {
  enum { kTarget, kName };
  HostCall& call = ScriptHeap::Of(context).Call();
  IVekScriptObject& object = ObjectOf(context, kTarget);
  bool isMember = false, isMethod = false;
  if (duk_is_string(context, kName) && !duk_is_symbol(context, kName)) {
    call.name = TakeText(context, kName);
    CallHost(context, [&] {
      call.result = {};
      isMember = object.GetMember(call.name, call.result);
      isMethod = !isMember && object.HasMethod(call.name);
    });
  }
  if (isMember) {
    PushValue(context, call.result);
  } else if (isMethod) {
    PushMethod(context, kTarget, kName);
  } else {
    duk_dup(context, kName);
    duk_get_prop(context, kTarget);
  }
  return 1;
}

duk_ret_t Set(duk_context* context) {
  enum { kTarget, kName, kValue };
  HostCall& call = ScriptHeap::Of(context).Call();
  MakePortable(context, kValue);
  IVekScriptObject& object = ObjectOf(context, kTarget);
  bool stored = false;
  call.name = TakeText(context, kName);
  CallHost(context, [&] { stored = object.SetMember(call.name, TakeValue(context, kValue)); });
  if (!stored) {
    call.name = "the object has no member \"" + call.name + "\"";
    ThrowText(context, DUK_ERR_TYPE_ERROR, call.name);
  }
  duk_push_true(context);
  return 1;
}

duk_ret_t Has(duk_context* context) {
  enum { kTarget, kName };
  HostCall& call = ScriptHeap::Of(context).Call();
  IVekScriptObject& object = ObjectOf(context, kTarget);
  bool known = false;
  call.name = TakeText(context, kName);
  CallHost(context, [&] { known = object.GetMember(call.name, call.result) || object.HasMethod(call.name); });
  duk_push_boolean(context, known);
  return 1;
}

constexpr duk_function_list_entry kTraps[] = {
    {"get", Get, 3}, {"set", Set, 4}, {"has", Has, 2}, {nullptr, nullptr, 0}};

}  // namespace

void PrepareObjectProxies(duk_context* context) {
  duk_push_thread_stash(context, context);
  duk_push_object(context);
  duk_put_function_list(context, -1, kTraps);
  duk_put_prop_string(context, -2, kHandler);
  duk_pop(context);
}

void PushObjectProxy(duk_context* context, IVekScriptObject* object) {
  if (!object) return duk_push_null(context);
  duk_push_object(context);
  duk_push_number(context, ScriptHeap::Of(context).AddObject(object));
  duk_put_prop_string(context, -2, kNumber);
  duk_push_thread_stash(context, context);
  duk_get_prop_string(context, -1, kHandler);
  duk_remove(context, -2);
  duk_push_proxy(context, 0);
}

bool MakeProxyPortable(duk_context* context, duk_idx_t index) {
  const bool isProxy = duk_get_prop_string(context, index, kNumber) != 0 && !duk_is_function(context, index);
  duk_pop(context);
  if (!isProxy) return false;
  duk_push_pointer(context, &ObjectOf(context, index));
  duk_replace(context, index);
  return true;
}
