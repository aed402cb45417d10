#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/log/EventSink.h"
#include "host/log/LogOutput.h"
#include "platform/Console.h"

/// Keeps every write; refuses those that would go past `capacity` bytes, as a full disk does.
class MemoryStream final : public OutputStream {
 public:
  explicit MemoryStream(size_t capacity = std::string::npos) : capacity_(capacity) {}

  SysResult Write(std::string_view bytes) override {
    ++calls;
    if (Text().size() + bytes.size() > capacity_) return SysResult::Failure(Win32Error::DiskFull);
    writes.emplace_back(bytes);
    return {};
  }

  std::string Text() const {
    std::string text;
    for (const std::string& write : writes) text += write;
    return text;
  }

  std::vector<std::string> writes;
  int calls = 0;

 private:
  size_t capacity_;
};

inline constexpr ActionPlace kGroup{"/1", "ACTIONGROUP", "Clean", true};
inline constexpr ActionPlace kDelete{"/1/1", "HDELETEFILES", "Delete File(s): *.obj", false};
inline constexpr ActionPlace kCreate{"/1/2", "HCREATEDIR", "Create out", false};

/// A group whose first action fails, which is ignored, and whose second one is skipped.
inline void PlaySmallBuild(EventSink& log) {
  log.BuildStart("demo.vekproj");
  log.ActionStart(kGroup);
  log.Variable("/1", "OUT", std::string("C:\\out"));
  log.ActionStart(kDelete);
  log.Progress("/1/1", "Deleting", 50);
  log.Status("/1/1", {"Deleting files : *.obj", " --> Access is denied.", "0 Files Deleted."});
  log.ActionEnd(kDelete, {ActionResult::Failure, 0.25, 1, true});
  log.ActionStart(kCreate);
  log.ActionEnd(kCreate, {ActionResult::Skipped, 0});
  log.Message("/1", "Cleaned");
  log.ActionEnd(kGroup, {ActionResult::Success, 1.5});
  log.BuildEnd({ActionResult::Success, 2, 2, 1});
}
