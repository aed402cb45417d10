#pragma once

#include "vekfile_export.h"

/// The package's entry point, called once by the host that loads it: makes every action type known, and with
/// a design-time user interface the property editors and pages too.
extern "C" VEK_FILE_API bool VekRegister(bool designTime);
