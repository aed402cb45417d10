#pragma once

#include <string>
#include <string_view>

#include "platform/Platform.h"
#include "tools/CopyRules.h"
#include "tools/Interruption.h"
#include "tools/Plan.h"

/// Brings one file to its destination, as the rules want it. [any thread]
class FileTransfer {
 public:
  FileTransfer(const Platform& platform, const CopyRules& rules, Interruption& interruption)
      : platform_(platform), rules_(rules), interruption_(interruption) {}

  /// A failure leaves both files as they were.
  SysResult Run(const std::string& source, const std::string& target, const FileStep& step) const;

 private:
  SysResult Bring(const std::string& source, const std::string& target, const FileStep& step) const;
  SysResult Copy(const std::string& source, const std::string& target) const;
  SysResult Verify(const std::string& source, const std::string& target) const;
  bool IsProtected(const std::string& source, uint32_t old) const;
  SysResult SetProperties(const std::string& source, const std::string& target, const FileStep& step,
                          uint32_t old) const;

  const Platform& platform_;
  const CopyRules& rules_;
  Interruption& interruption_;
};
