#include "coreapi/Vekscripts.h"

#include "base/Text.h"
#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekservices.h"

namespace {

class Parameter final : public IVekActionScriptParameter {
 public:
  Parameter(std::string_view name, ScriptParamKind kind) : name_(name), kind_(kind) {}
  const std::string& Name() const override { return name_; }
  ScriptParamKind Kind() const override { return kind_; }
  const Variant& Value() const override { return value_; }
  void SetValue(Variant value) override { value_ = std::move(value); }

 private:
  std::string name_;
  ScriptParamKind kind_;
  Variant value_;
};

class Parameters final : public IVekActionScriptParams {
 public:
  void AddParameter(std::string_view name, ScriptParamKind kind) override {
    parameters_.emplace_back(name, kind);
  }
  size_t Count() const override { return parameters_.size(); }
  IVekActionScriptParameter& Parameter(size_t index) override { return parameters_.at(index); }
  IVekActionScriptParameter& ParameterByName(std::string_view name) override {
    for (auto& parameter : parameters_) {
      if (SameText(parameter.Name(), name)) return parameter;
    }
    throw EVekError("the script has no parameter \"" + std::string(name) + "\"");
  }

 private:
  std::vector<::Parameter> parameters_;
};

class ActionScript final : public IVekActionScript {
 public:
  explicit ActionScript(std::string_view name) : name_(name) {}
  const std::string& Name() const override { return name_; }
  const std::string& Text() const override { return text_; }
  void SetText(std::string text) override { text_ = std::move(text); }
  IVekActionScriptParams& Params() override { return params_; }

 private:
  std::string name_, text_;
  Parameters params_;
};

/// A property's value as scripts see it: enumerations as ordinals, sets and lists as their text.
Variant ToVariant(const PropertyRow& row, const PropertyValue& value) {
  if (row.type == PropertyType::Set || row.type == PropertyType::StringList)
    return PropertyToText(row, value);
  struct {
    Variant operator()(const std::string& text) const { return text; }
    Variant operator()(bool truth) const { return truth; }
    Variant operator()(int64_t number) const { return number; }
    Variant operator()(TDateTime time) const { return time; }
    Variant operator()(const StringList&) const { return {}; }
  } convert;
  return std::visit(convert, value);
}

/// What a script assigns, as a value of the property: an ordinal or a value's name for an enumeration, else
/// whatever the text of the value fits.
PropertyValue ToProperty(const PropertyRow& row, const Variant& value) {
  if (row.type == PropertyType::Enumeration) {
    const auto* ordinal = std::get_if<int64_t>(&value);
    const auto count = static_cast<int64_t>(row.enumType().values.size());
    if (ordinal && *ordinal >= 0 && *ordinal < count) return *ordinal;
  }
  const std::string text = VariantToText(value);
  if (auto converted = PropertyFromText(row, text)) return *std::move(converted);
  throw EVekError("property " + std::string(row.name) + ": \"" + text + "\" is not " +
                  DescribeExpectedText(row));
}

class ActionObject final : public IVekScriptObject {
 public:
  explicit ActionObject(TCustomVekAction& action) : action_(action) {}

  bool GetMember(std::string_view name, Variant& value) override {
    const PropertyRow* row = action_.FindProperty(name);
    if (row) value = ToVariant(*row, row->get(action_));
    return row != nullptr;
  }

  bool SetMember(std::string_view name, const Variant& value) override {
    const PropertyRow* row = action_.FindProperty(name);
    if (!row) return false;
    if (!row->set) throw EVekError("property " + std::string(row->name) + " is read-only");
    row->set(action_, ToProperty(*row, value));
    return true;
  }

  bool HasMethod(std::string_view name) override { return FindMethod(name) != nullptr; }

  Variant Call(std::string_view name, std::span<const Variant> arguments) override {
    const ScriptMethodHandler handler = FindMethod(name);
    if (!handler) throw EVekError("the action has no method \"" + std::string(name) + "\"");
    return handler(action_, arguments);
  }

 private:
  ScriptMethodHandler FindMethod(std::string_view name) const {
    return VekScriptingServices().FindScriptMethod(action_.ClassType(), name);
  }

  TCustomVekAction& action_;
};

}  // namespace

bool IVekActionScript::IsBlank() const { return Trim(Text()).empty(); }

std::unique_ptr<IVekActionScript> CreateActionScript(std::string_view eventName) {
  return std::make_unique<ActionScript>(eventName);
}

std::unique_ptr<IVekScriptObject> CreateActionScriptObject(TCustomVekAction& action) {
  return std::make_unique<ActionObject>(action);
}
