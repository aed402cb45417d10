#pragma once

#include "platform/ComClasses.h"
#include "platform/Entries.h"
#include "platform/Registry.h"

/// Classes as the registry describes them: an object can be made of one whose server is a file that exists.
class PosixComClasses final : public ComClasses {
 public:
  PosixComClasses(Registry& registry, Entries& entries) : registry_(registry), entries_(entries) {}

  bool CanCreate(std::string_view classId) override;
  std::optional<std::string> ClassIdOf(std::string_view progId) override;

 private:
  std::string DefaultValue(const std::string& key);
  bool NamesFile(std::string_view server);

  Registry& registry_;
  Entries& entries_;
};
