#pragma once

#include <memory>

#include "platform/CreatePlatform.h"

/// The machine's platform with the drives that vekrun has told of.
std::unique_ptr<PlatformOwner> CreateToolPlatform();
