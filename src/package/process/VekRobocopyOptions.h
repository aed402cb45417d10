#pragma once

#include <string>
#include <string_view>

#include "coreapi/Vekoptions.h"

/// What the robocopy actions ask of the options.
class IVekRobocopyOptions {
 public:
  static constexpr std::string_view kInterfaceId = "{7C40189B-9CB1-43D6-BC52-723886485158}";
  virtual ~IVekRobocopyOptions() = default;

  /// The full name of robocopy.exe, or empty.
  virtual const std::string& RobocopyPath() const = 0;
};

/// Where robocopy.exe lies, for all actions of this user.
class TVekRobocopyOptions final : public TVekOptionsObject, public IVekRobocopyOptions {
 public:
  static constexpr std::string_view kClassName = "TVekRobocopyOptions";
  static constexpr std::string_view kCategory = "Archivers";
  static constexpr std::string_view kName = "Robocopy";
  static constexpr std::string_view kOptionKey = "Robocopy";

  explicit TVekRobocopyOptions(const Platform& platform) : platform_(platform) {}

  const std::string& RobocopyPath() const override { return robocopyPath_; }
  void SetRobocopyPath(std::string_view value);

  void LoadOptions(const IVekOptionsReader& reader) override;
  void SaveOptions(IVekOptionsWriter& writer) const override;
  std::vector<const PropertyRow*> PropertyRows() const override { return {&kPublished[0]}; }

  static constexpr PropertyRow kPublished[] = {
      Published<&TVekRobocopyOptions::RobocopyPath, &TVekRobocopyOptions::SetRobocopyPath>("RobocopyPath",
                                                                                           TextRole::File),
  };

 private:
  std::string TryToFindRobocopyPath() const;

  const Platform& platform_;
  std::string robocopyPath_;
};

/// The path that the host's options hold just now; empty where there are none.
std::string StoredRobocopyPath();
