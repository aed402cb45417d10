#pragma once

#include <string>

#include "platform/Platform.h"
#include "tools/Interruption.h"
#include "tools/Plan.h"
#include "tools/Report.h"

/// Removes what only the destination has. Links are removed and never followed; what is excluded by its name
/// stays, and so do the folders around it.
class Purge {
 public:
  Purge(const Platform& platform, const Selection& selection, const Planner& planner,
        Interruption& interruption)
      : platform_(platform), selection_(selection), planner_(planner), interruption_(interruption) {}

  SysResult Remove(const std::string& path, const FoundEntry& entry) const;

 private:
  SysResult RemoveFile(const std::string& path, uint32_t attributes) const;
  SysResult RemoveFolder(const std::string& path, uint32_t attributes) const;
  SysResult RemoveSelected(const std::string& path) const;

  const Platform& platform_;
  const Selection& selection_;
  const Planner& planner_;
  Interruption& interruption_;
};
