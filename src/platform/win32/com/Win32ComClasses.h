#pragma once

#include "platform/ComClasses.h"

class Win32ComClasses final : public ComClasses {
 public:
  bool CanCreate(std::string_view classId) override;
  std::optional<std::string> ClassIdOf(std::string_view progId) override;
};
