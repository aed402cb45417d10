#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "coreapi/Vekactionhost.h"
#include "platform/CreatePlatform.h"

/// A host for actions that are only loaded, edited and saved: it raises when it is asked for anything that
/// belongs to a build. The platform is there, for defaults that depend on the day.
class NullHost : public IVekActionHost {
 public:
  const Platform& GetPlatform() override { return owner_->Get(); }
  std::string ExpandExpression(std::string_view) override { Refuse("ExpandExpression"); }
  std::string ExpandPath(std::string_view) override { Refuse("ExpandPath"); }
  std::string ExpandCounting(std::string_view, int32_t&) override { Refuse("ExpandCounting"); }
  Variant GetVariableValue(std::string_view) override { Refuse("GetVariableValue"); }
  void SetVariable(std::string_view, Variant) override { Refuse("SetVariable"); }
  bool IsVariableDefined(std::string_view) override { Refuse("IsVariableDefined"); }
  void SendMessage(std::string_view) override { Refuse("SendMessage"); }
  void SendStatusMessage(const IVekActionLogMessage&) override { Refuse("SendStatusMessage"); }
  void SendProgress(std::string_view, int32_t) override { Refuse("SendProgress"); }
  void ReportError(std::string_view) override { Refuse("ReportError"); }
  bool ExecuteScript(TCustomVekAction&, IVekActionScript&, Variant&) override { Refuse("ExecuteScript"); }
  bool StopSignalled() override { Refuse("StopSignalled"); }
  bool IsUnattended() override { Refuse("IsUnattended"); }
  void Synchronize(const std::function<void()>&) override { Refuse("Synchronize"); }
  FolderLinks GetFolderLinks() override { Refuse("GetFolderLinks"); }
  IVekProjectObjectAPI& GetProjectObjectAPI() override { Refuse("GetProjectObjectAPI"); }
  void MarkVariableSecret(std::string_view) override { Refuse("MarkVariableSecret"); }
  bool MayRemoveTree(std::string_view) override { Refuse("MayRemoveTree"); }
  bool MayRemoveMatches(std::string_view) override { Refuse("MayRemoveMatches"); }
  void SetProjectModified() override {}  // key values of any action that is loaded

 private:
  const std::unique_ptr<PlatformOwner> owner_ = CreatePlatform([](char) { return std::nullopt; });

  [[noreturn]] static void Refuse(const char* operation) {
    throw std::logic_error(std::string("no build is running: ") + operation);
  }
};
