#pragma once

#include <objbase.h>

#include "platform/win32/system/Win32Api.h"

/// Lets this thread use the system's objects.
class Win32ComScope {
 public:
  Win32ComScope()
      : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
  ~Win32ComScope() {
    if (entered_) CoUninitialize();
  }
  Win32ComScope(const Win32ComScope&) = delete;
  Win32ComScope& operator=(const Win32ComScope&) = delete;

 private:
  const bool entered_;
};
