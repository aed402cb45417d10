#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "coreapi/Vekvariant.h"
#include "vekcoreapi_export.h"

class TCustomVekAction;

/// Something a script can hold: named members and methods. [build thread]
class IVekScriptObject {
 public:
  virtual ~IVekScriptObject() = default;
  virtual bool GetMember(std::string_view name, Variant& value) = 0;  // false: no such member
  virtual bool SetMember(std::string_view name, const Variant& value) = 0;
  virtual bool HasMethod(std::string_view name) = 0;
  virtual Variant Call(std::string_view method, std::span<const Variant> arguments) = 0;
};

/// Whether a script's changes to a parameter are read back.
enum class ScriptParamKind { In = 0, InOut = 1 };

class IVekActionScriptParameter {
 public:
  virtual ~IVekActionScriptParameter() = default;
  virtual const std::string& Name() const = 0;
  virtual ScriptParamKind Kind() const = 0;
  virtual const Variant& Value() const = 0;
  virtual void SetValue(Variant value) = 0;
};

class IVekActionScriptParams {
 public:
  virtual ~IVekActionScriptParams() = default;
  virtual void AddParameter(std::string_view name, ScriptParamKind kind) = 0;
  virtual size_t Count() const = 0;
  virtual IVekActionScriptParameter& Parameter(size_t index) = 0;
  virtual IVekActionScriptParameter& ParameterByName(std::string_view name) = 0;  // raises EVekError
};

/// The user's script for one event of an action. [build thread]
class IVekActionScript {
 public:
  virtual ~IVekActionScript() = default;
  virtual const std::string& Name() const = 0;
  virtual const std::string& Text() const = 0;
  virtual void SetText(std::string text) = 0;
  virtual IVekActionScriptParams& Params() = 0;

  /// An event without a script runs nothing.
  VEK_API bool IsBlank() const;
};

VEK_API std::unique_ptr<IVekActionScript> CreateActionScript(std::string_view eventName);

/// The view that scripts have of an action: its properties and its class's registered script methods.
VEK_API std::unique_ptr<IVekScriptObject> CreateActionScriptObject(TCustomVekAction& action);
