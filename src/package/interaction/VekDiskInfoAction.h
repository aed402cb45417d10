#pragma once

#include <string>

#include "interaction/Vekvariableresult.h"

struct DiskSpace;

enum class TDiskSpaceUnit { suBytes, suKilobytes, suMegabytes, suGigabytes };
template <>
inline constexpr auto kEnumNames<TDiskSpaceUnit> = Names("TDiskSpaceUnit", "suBytes", "suKilobytes",
                                                         "suMegabytes", "suGigabytes");

/// "Get Disk Free Space": the free and the whole space of a disk go into variables.
class TCustomDiskInfoAction : public TVekVariableResultAction {
 public:
  static const ActionClass kClass;
  using TVekVariableResultAction::TVekVariableResultAction;

  std::string Drive;  // a letter, with or without a colon, or any path on the disk; blank: the current folder
  TDiskSpaceUnit SpaceUnit = TDiskSpaceUnit::suMegabytes;
  std::string FreeSpaceVar;
  std::string TotalSpaceVar;
  bool FailIfLess = false;
  std::string MinimumFree;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  bool ExpandMinimum(std::string& text, double& least) const;
  bool ReadSpace(const std::string& drive, DiskSpace& space) const;
};

class TDiskInfoAction final : public PublishedAction<TDiskInfoAction, TCustomDiskInfoAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TDiskInfoAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomDiskInfoAction::Drive>("Drive", TextRole::Folder),
      Published<&TCustomDiskInfoAction::SpaceUnit>("SpaceUnit"),
      Published<&TCustomDiskInfoAction::FreeSpaceVar>("FreeSpaceVar", TextRole::Variable),
      Published<&TCustomDiskInfoAction::TotalSpaceVar>("TotalSpaceVar", TextRole::Variable),
      Published<&TCustomDiskInfoAction::FailIfLess>("FailIfLess"),
      Published<&TCustomDiskInfoAction::MinimumFree>("MinimumFree"),
  };
};
