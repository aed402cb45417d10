#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "coreapi/Vekvariant.h"

struct Platform;
class IVekActionLogMessage;
class IVekActionScript;
class IVekProjectObjectAPI;
class TCustomVekAction;
enum class FolderLinks;

/// What an action's base asks of the host that runs it. Actions do not see this interface; they call the
/// operations of TCustomVekAction.
class IVekActionHost {
 public:
  virtual ~IVekActionHost() = default;

  /// [any thread]
  virtual const Platform& GetPlatform() = 0;

  // Expressions and variables. [build thread]
  virtual std::string ExpandExpression(std::string_view text) = 0;  // raises EVekExpressionError

  /// Likewise for the path of a file or folder: it must not begin at the root because a variable is empty.
  virtual std::string ExpandPath(std::string_view text) = 0;

  /// Likewise; reports how many references the text held.
  virtual std::string ExpandCounting(std::string_view text, int32_t& replaced) = 0;
  virtual Variant GetVariableValue(std::string_view name) = 0;  // raises EVekError when undefined
  virtual void SetVariable(std::string_view name, Variant value) = 0;
  virtual bool IsVariableDefined(std::string_view name) = 0;

  /// From now on no value of the variable shows in a log.
  virtual void MarkVariableSecret(std::string_view name) = 0;

  /// A line of the build log. What another thread sends is logged before the build thread's next event.
  /// [any thread]
  virtual void SendMessage(std::string_view text) = 0;

  // The build log. [build thread]
  virtual void SendStatusMessage(const IVekActionLogMessage& message) = 0;
  virtual void SendProgress(std::string_view text, int32_t percent) = 0;
  virtual void ReportError(std::string_view text) = 0;

  /// The running action has logged an error in words of its own. [any thread]
  virtual void CountError() {}

  /// What is logged while the log is held back may be written in one go when it is let go: for a moment in
  /// which much happens at once.
  virtual void HoldLog(bool /*held*/) {}

  /// Runs the script with its parameters; reports and answers false when it does not compile or throws.
  /// [build thread]
  virtual bool ExecuteScript(TCustomVekAction& action, IVekActionScript& script, Variant& result) = 0;

  /// [any thread]
  virtual bool StopSignalled() = 0;
  virtual bool IsUnattended() = 0;

  /// Runs `method` on the user-interface thread and waits for it. [build thread]
  virtual void Synchronize(const std::function<void()>& method) = 0;

  /// Whether a step may remove or move away a folder with all that it holds, or the entries that match a
  /// spec. [build thread]
  virtual bool MayRemoveTree(std::string_view folder) = 0;
  virtual bool MayRemoveMatches(std::string_view spec) = 0;

  /// The project's named objects. [build thread]
  virtual IVekProjectObjectAPI& GetProjectObjectAPI() = 0;

  /// What the project says of links to folders, for walks whose finds are handed out or changed.
  virtual FolderLinks GetFolderLinks() = 0;
  virtual void SetProjectModified() = 0;
};
