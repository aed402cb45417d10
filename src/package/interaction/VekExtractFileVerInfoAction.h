#pragma once

#include <optional>
#include <string>

#include "interaction/Vekvariableresult.h"

struct VersionResource;

/// "Extract Version Info": what the version resource of a Windows program says goes into variables.
class TCustomVekExtractFileVerInfoAction : public TVekVariableResultAction {
 public:
  static const ActionClass kClass;
  using TVekVariableResultAction::TVekVariableResultAction;

  std::string FileName;
  std::string FileVersionVar, ProductVersionVar;
  std::string MajorVar, MinorVar, ReleaseVar, BuildVar;
  StringList StringNames;
  StringList StringVars;  // by the index of the name
  bool FailIfNotFound = true;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  /// Names of variables, expanded.
  struct Targets {
    std::string fileVersion, productVersion;
    std::string numbers[4];
    StringList names, strings;  // entries of the resource, and where they go
  };

  bool ExpandTargets(Targets& targets) const;
  bool ExpandStrings(Targets& targets) const;
  bool ReadResource(const std::string& path, std::optional<VersionResource>& resource) const;
  void StoreNothing(const Targets& targets) const;
  bool StoreResource(const Targets& targets, const std::string& path, const VersionResource& resource) const;
};

class TVekExtractFileVerInfoAction final
    : public PublishedAction<TVekExtractFileVerInfoAction, TCustomVekExtractFileVerInfoAction> {
 public:
  using PublishedAction::PublishedAction;
  using Logic = TCustomVekExtractFileVerInfoAction;
  static constexpr std::string_view kClassName = "TVekExtractFileVerInfoAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&Logic::FileName>("FileName", TextRole::File),
      Published<&Logic::FileVersionVar>("FileVersionVar", TextRole::Variable),
      Published<&Logic::ProductVersionVar>("ProductVersionVar", TextRole::Variable),
      Published<&Logic::MajorVar>("MajorVar", TextRole::Variable),
      Published<&Logic::MinorVar>("MinorVar", TextRole::Variable),
      Published<&Logic::ReleaseVar>("ReleaseVar", TextRole::Variable),
      Published<&Logic::BuildVar>("BuildVar", TextRole::Variable),
      Published<&Logic::StringNames>("StringNames"),
      Published<&Logic::StringVars>("StringVars", TextRole::Variable),
      Published<&Logic::FailIfNotFound>("FailIfNotFound"),
  };
};
