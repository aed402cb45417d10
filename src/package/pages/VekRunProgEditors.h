#pragma once

#include "forms/Vekpropertyeditors.h"

/// Chooses the program to run.
class TRunProgEditor final : public TFileNameEdit {
 public:
  static constexpr std::string_view kClassName = "TRunProgEditor";
  static constexpr std::string_view kExtension = ".exe";
  static constexpr std::string_view kFilter = "Program Files (*.exe)|*.exe|All Files (*.*)|*.*";
  static constexpr std::string_view kTitle = "Select Program File";

  std::string_view GetDefaultExtension() const override { return kExtension; }
  std::string_view GetFilter() const override { return kFilter; }
  std::string_view GetTitle() const override { return kTitle; }
};

/// Chooses the folder that a program starts in.
class TStartDirectoryEditor final : public TSelectDirectoryEditor {
 public:
  static constexpr std::string_view kClassName = "TStartDirectoryEditor";
  static constexpr std::string_view kTitle = "Select Start Directory";

  std::string_view GetTitle() const override { return kTitle; }
};
