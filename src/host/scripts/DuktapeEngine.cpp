#include <cmath>

#include "host/scripts/Border.h"
#include "host/scripts/EngineText.h"
#include "host/scripts/ProtectedCall.h"
#include "host/scripts/Realm.h"
#include "host/scripts/RealmCache.h"
#include "host/scripts/ScriptEngine.h"
#include "host/scripts/ScriptHeap.h"

namespace {

/// A parameter on its way through a script. Its value is pushed at the position of its index.
struct ScriptGlobal {
  std::string name;
  Variant value;
  bool isReadBack = false, isChanged = false;
};

struct ScriptCall {
  std::string source;
  Variant result;
  std::vector<ScriptGlobal> globals;
};

void Compile(duk_context* context, const std::string& source, duk_uint_t flags) {
  duk_push_lstring(context, source.data(), source.size());
  duk_push_string(context, kScriptName);
  duk_compile(context, flags | DUK_COMPILE_EVAL);
}

void EvaluateExpression(duk_context* context, ScriptCall& call) {
  Compile(context, call.source, DUK_COMPILE_STRICT);
  duk_call(context, 0);
  MakePortable(context, -1);
  call.result = TakeValue(context, -1);
}

void DefineGlobals(duk_context* context, const ScriptCall& call) {
  for (const auto& global : call.globals) {
    PushValue(context, global.value);
    duk_push_global_object(context);
    PushText(context, global.name);
    duk_dup(context, -3);
    duk_def_prop(context, -3, DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WEC);
    duk_pop(context);
  }
}

/// What a script leaves untouched keeps its value to the last bit.
void ReadGlobalBack(duk_context* context, ScriptGlobal& global, duk_idx_t original) {
  duk_push_global_object(context);
  PushText(context, global.name);
  duk_get_prop(context, -2);
  global.isChanged = duk_is_object(context, -1) || !duk_strict_equals(context, -1, original);
  if (global.isChanged) {
    MakePortable(context, -1);
    global.value = TakeValue(context, -1);
  }
  duk_pop_2(context);
}

duk_ret_t MakeResultPortable(duk_context* context, void*) {
  MakePortable(context, -1);
  return 1;
}

void RunScript(duk_context* context, ScriptCall& call) {
  RenewGlobals(context);
  DefineGlobals(context, call);
  Compile(context, call.source, 0);
  duk_push_global_object(context);
  duk_call_method(context, 0);
  // An object that has no text is no reason to fail: scripts seldom mean their last value.
  if (duk_safe_call(context, MakeResultPortable, nullptr, 1, 1) == DUK_EXEC_SUCCESS) {
    call.result = TakeValue(context, -1);
  }
  for (size_t i = 0; i < call.globals.size(); ++i) {
    if (call.globals[i].isReadBack) ReadGlobalBack(context, call.globals[i], static_cast<duk_idx_t>(i));
  }
}

struct EngineState {
  EngineState(ScriptEnvironment& environment, size_t limit) : heap(environment, limit), realms(heap) {}
  ScriptHeap heap;
  RealmCache realms;
};

class DuktapeEngine final : public ScriptEngine {
 public:
  DuktapeEngine(ScriptEnvironment& environment, size_t memoryLimit)
      : environment_(environment), memoryLimit_(memoryLimit) {}

  Variant Evaluate(std::string_view expression) override {
    Turn turn(*this);
    ScriptCall call{ToEngineText(expression), {}, {}};
    duk_context* realm = turn.State().realms.ForExpressions();
    turn.Call(realm, [&](duk_context* context) { EvaluateExpression(context, call); });
    return std::move(call.result);
  }

  Variant Run(std::string_view source, IVekActionScriptParams& params) override {
    Turn turn(*this);
    ScriptCall call{ToEngineText(source), {}, {}};
    for (size_t i = 0; i < params.Count(); ++i) {
      const auto& parameter = params.Parameter(i);
      call.globals.push_back(
          {parameter.Name(), parameter.Value(), parameter.Kind() == ScriptParamKind::InOut});
    }
    duk_context* realm = turn.State().realms.ForScript(source);
    turn.Call(realm, [&](duk_context* context) { RunScript(context, call); });
    turn.Call(realm, [](duk_context* context) { RenewGlobals(context); });
    for (size_t i = 0; i < call.globals.size(); ++i) {
      if (call.globals[i].isChanged) params.Parameter(i).SetValue(std::move(call.globals[i].value));
    }
    return std::move(call.result);
  }

  void Compile(std::string_view source, SourceKind kind) override {
    Turn turn(*this);
    const std::string text = ToEngineText(source);
    const duk_uint_t flags = kind == SourceKind::Expression ? DUK_COMPILE_STRICT : 0;
    turn.Call(turn.State().realms.ForExpressions(),
              [&](duk_context* context) { ::Compile(context, text, flags); });
  }

 private:
  /// A use of the engine. A script that makes the host evaluate another one gives that one a heap of its own;
  /// a heap that was interrupted or full is not used again.
  class Turn {
   public:
    explicit Turn(DuktapeEngine& engine) : engine_(engine), state_(std::move(engine.idle_)) {
      if (engine_.turns_ == kMostTurns) throw EScriptError("scripts run each other too deeply", 0);
      if (!state_) state_ = std::make_unique<EngineState>(engine_.environment_, engine_.memoryLimit_);
      ++engine_.turns_;
    }
    ~Turn() {
      --engine_.turns_;
      state_->heap.ForgetObjects();
      if (!state_->heap.Interrupted() && !state_->heap.RanOut()) engine_.idle_ = std::move(state_);
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    EngineState& State() { return *state_; }

    template <class Work>
    void Call(duk_context* context, const Work& work) {
      ProtectedCall(state_->heap, context, work);
      if (state_->heap.Interrupted()) throw EScriptError("the script was interrupted", 0);
    }

   private:
    static constexpr int kMostTurns = 8;
    DuktapeEngine& engine_;
    std::unique_ptr<EngineState> state_;
  };

  ScriptEnvironment& environment_;
  const size_t memoryLimit_;
  std::unique_ptr<EngineState> idle_;
  int turns_ = 0;
};

}  // namespace

std::unique_ptr<ScriptEngine> CreateScriptEngine(ScriptEnvironment& environment, size_t memoryLimitBytes) {
  return std::make_unique<DuktapeEngine>(environment, memoryLimitBytes);
}
