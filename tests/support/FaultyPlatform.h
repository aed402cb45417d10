#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Entries.h"
#include "platform/Platform.h"

/// A call of the platform that is about to be made.
struct PlatformCall {
  std::string_view operation;  // "entries.Delete", "file.Write", ...
  std::string_view path;
  bool isQuestion = false;                 // answers yes or no, and has no way to fail
  const CopyOptions* copy = nullptr;       // of a copy
  const CopyProgress* progress = nullptr;  // of a move
  uint32_t bits = 0;                       // a move's flags, or the attributes that are set
};

/// Asked before each call; what it answers stands in for the call, and of a question's answer its `ok`. A
/// write that fails so has written its first half.
using Fault = std::function<std::optional<SysResult>(const PlatformCall&)>;

/// The real platform, of which every call can be made to fail, and every call of what it opens.
class FaultyPlatform {
 public:
  FaultyPlatform(const Platform& real, const Fault& fault);
  ~FaultyPlatform();
  const Platform& Get() const { return platform_; }

 private:
  struct Capabilities;
  std::unique_ptr<Capabilities> capabilities_;
  Platform platform_;
};
