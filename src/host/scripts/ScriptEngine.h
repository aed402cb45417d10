#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "coreapi/Vekerrors.h"
#include "coreapi/Vekproperties.h"
#include "coreapi/Vekscripts.h"
#include "coreapi/Vekvariant.h"

/// A script that does not compile, throws, runs out of memory or is interrupted.
class EScriptError : public EVekError {
 public:
  EScriptError(const std::string& message, int line, std::string unknownName = {})
      : EVekError(message), line_(line), unknownName_(std::move(unknownName)) {}
  int Line() const { return line_; }                               // 1-based, of the script; 0 when unknown
  const std::string& UnknownName() const { return unknownName_; }  // empty for other errors

 private:
  int line_;
  std::string unknownName_;
};

/// What scripts see of the build: the object `Vek`, the variables and the registered constants.
class ScriptEnvironment {
 public:
  virtual ~ScriptEnvironment() = default;
  virtual const Variant* FindVariable(std::string_view name) = 0;
  virtual void SetVariable(std::string_view name, Variant value) = 0;
  virtual void Log(std::string_view text) = 0;
  virtual std::string NativePath(std::string_view path) = 0;
  virtual IVekScriptObject* ActionByName(std::string_view name) = 0;  // null: no such action
  virtual const std::vector<std::pair<std::string, Variant>>& Constants() = 0;

  /// Polled while a script runs; true ends it. [any thread]
  virtual bool Interrupted() = 0;

  // Brackets what the engine does by itself, which may take as long as a script likes; while the script calls
  // one of the above, it is not in the engine.
  virtual void EnterEngine() {}
  virtual void LeaveEngine() {}
};

/// A JavaScript engine. Scripts reach no file, process or network.
class ScriptEngine {
 public:
  virtual ~ScriptEngine() = default;

  /// The value of an expression; variables are readable by name, without regard to case. Raises EScriptError.
  virtual Variant Evaluate(std::string_view expression) = 0;

  /// Runs a script whose parameters are globals of their names; those of kind InOut are read back. The
  /// script's completion value is the result. Raises EScriptError; parameters are then unchanged.
  virtual Variant Run(std::string_view source, IVekActionScriptParams& params) = 0;

  /// Compiles an expression or a script without running it; raises EScriptError.
  enum class SourceKind { Expression, Script };
  virtual void Compile(std::string_view source, SourceKind kind) = 0;
};

std::unique_ptr<ScriptEngine> CreateScriptEngine(ScriptEnvironment& environment,
                                                 size_t memoryLimitBytes = size_t{64} << 20);
