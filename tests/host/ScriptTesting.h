#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/Text.h"
#include "host/expressions/Variables.h"
#include "host/scripts/ScriptEngine.h"

/// A script object with a few members and methods.
class FakeObject final : public IVekScriptObject {
 public:
  std::map<std::string, Variant, LessNoCase> members = {{"Count", int64_t{3}},
                                                        {"Title", std::string("first")}};
  std::vector<Variant> arguments;  // of the last call

  bool GetMember(std::string_view name, Variant& value) override {
    if (name == "Broken") throw EVekError("the member is broken");
    const auto found = members.find(name);
    if (found != members.end()) value = found->second;
    return found != members.end();
  }
  bool SetMember(std::string_view name, const Variant& value) override {
    const auto found = members.find(name);
    if (found != members.end()) found->second = value;
    return found != members.end();
  }
  bool HasMethod(std::string_view name) override { return name == "Reset" || name == "Join"; }
  Variant Call(std::string_view method, std::span<const Variant> values) override {
    arguments.assign(values.begin(), values.end());
    if (method == "Reset") throw EVekError("nothing to reset");
    std::string joined;
    for (const auto& value : values) joined += VariantToText(value) + ";";
    return joined;
  }
};

class FakeEnvironment final : public ScriptEnvironment {
 public:
  Variables variables;
  std::vector<std::string> log;
  std::vector<std::pair<std::string, Variant>> constants = {{"tfFailOnLess", int64_t{0}},
                                                            {"tfPutIntoVar", int64_t{2}}};
  FakeObject action;
  ScriptEngine* nested = nullptr;  // evaluates every line that is logged
  int pollsLeft = -1;              // until scripts are interrupted; negative: never

  const Variant* FindVariable(std::string_view name) override { return variables.Find(name); }
  void SetVariable(std::string_view name, Variant value) override {
    if (name == "LOCKED") throw EVekError("LOCKED cannot be set");
    variables.Set(name, std::move(value));
  }
  std::string NativePath(std::string_view path) override { return "native:" + std::string(path); }
  void Log(std::string_view text) override {
    log.push_back(nested ? VariantToText(nested->Evaluate(text)) : std::string(text));
  }
  IVekScriptObject* ActionByName(std::string_view name) override {
    return SameText(name, "Act") ? &action : nullptr;
  }
  const std::vector<std::pair<std::string, Variant>>& Constants() override { return constants; }
  bool Interrupted() override { return pollsLeft == 0 || (pollsLeft > 0 && --pollsLeft == 0); }
};
