#include "host/scripts/VekObject.h"

#include <string>

#include "host/expressions/VariableName.h"
#include "host/project/Quoted.h"
#include "host/scripts/Border.h"
#include "host/scripts/ScriptEngine.h"
#include "host/scripts/ScriptHeap.h"

namespace {

/// Takes the argument at `index` as a text; numbers and the like become what a script sees them as.
void TakeName(duk_context* context, duk_idx_t index) {
  duk_to_string(context, index);
  ScriptHeap::Of(context).Call().name = TakeText(context, index);
}

const Variant* FindVariable(duk_context* context) {
  TakeName(context, 0);
  ScriptHeap& heap = ScriptHeap::Of(context);
  const Variant* value = nullptr;
  CallHost(context, [&] { value = heap.Environment().FindVariable(heap.Call().name); });
  return value;
}

duk_ret_t GetVariable(duk_context* context) {
  const Variant* value = FindVariable(context);
  if (!value) {
    std::string& name = ScriptHeap::Of(context).Call().name;
    name = "unknown variable \"" + name + "\"";
    ThrowText(context, DUK_ERR_ERROR, name);
  }
  PushValue(context, *value);
  return 1;
}

duk_ret_t IsVariableDefined(duk_context* context) {
  duk_push_boolean(context, FindVariable(context) != nullptr);
  return 1;
}

duk_ret_t SetVariable(duk_context* context) {
  ScriptHeap& heap = ScriptHeap::Of(context);
  MakePortable(context, 1);
  if (duk_is_pointer(context, 1)) ThrowText(context, DUK_ERR_TYPE_ERROR, "a variable cannot hold an object");
  TakeName(context, 0);
  if (!IsVariableName(heap.Call().name)) {
    std::string& name = heap.Call().name;
    name = Quoted(name) + " is no variable name (letters, digits, _ . - ( ))";
    ThrowText(context, DUK_ERR_ERROR, name);
  }
  CallHost(context, [&] { heap.Environment().SetVariable(heap.Call().name, TakeValue(context, 1)); });
  return 0;
}

duk_ret_t Log(duk_context* context) {
  ScriptHeap& heap = ScriptHeap::Of(context);
  TakeName(context, 0);
  CallHost(context, [&] { heap.Environment().Log(heap.Call().name); });
  return 0;
}

duk_ret_t NativePath(duk_context* context) {
  ScriptHeap& heap = ScriptHeap::Of(context);
  TakeName(context, 0);
  CallHost(context, [&] { heap.Call().result = Variant(heap.Environment().NativePath(heap.Call().name)); });
  PushValue(context, heap.Call().result);
  return 1;
}

duk_ret_t ActionByName(duk_context* context) {
  ScriptHeap& heap = ScriptHeap::Of(context);
  TakeName(context, 0);
  CallHost(context, [&] { heap.Call().result = heap.Environment().ActionByName(heap.Call().name); });
  PushValue(context, heap.Call().result);
  return 1;
}

constexpr duk_function_list_entry kFunctions[] = {
    {"GetVariable", GetVariable, 1},
    {"SetVariable", SetVariable, 2},
    {"IsVariableDefined", IsVariableDefined, 1},
    {"Log", Log, 1},
    {"ActionByName", ActionByName, 1},
    {"NativePath", NativePath, 1},
    {nullptr, nullptr, 0},
};

}  // namespace

void PushVekObject(duk_context* context) {
  duk_push_object(context);
  duk_put_function_list(context, -1, kFunctions);
  duk_freeze(context, -1);
}
