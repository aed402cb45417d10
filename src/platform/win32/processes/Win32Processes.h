#pragma once

#include "platform/Processes.h"

class Win32Processes final : public Processes {
 public:
  SysResult Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                int32_t& exitCode) override;
  SysResult Start(const ProcessSetup& setup) override;
};
