#include "platform/win32/paths/Win32Path.h"

#include <algorithm>

#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"

namespace {

constexpr std::wstring_view kLong = L"\\\\?\\";
constexpr std::wstring_view kLongShare = L"\\\\?\\UNC\\";

/// Folders may be this long without the long form: a name of the old 8.3 kind still fits behind.
constexpr size_t kLongFrom = MAX_PATH - 12;

/// No file system takes a longer name; what the system reports differs with the form of the path.
bool HasTooLongName(std::wstring_view path) {
  constexpr size_t kLongest = 255;
  for (size_t start = 0, end = 0; end != std::wstring_view::npos; start = end + 1) {
    end = path.find(L'\\', start);
    if (std::min(end, path.size()) - start > kLongest) return true;
  }
  return false;
}

}  // namespace

SysResult AbsolutePath(std::string_view path, std::wstring& absolute) {
  const auto wide = ToWide(path);
  if (!wide || wide->find(L'\0') != std::wstring::npos) return SysResult::Failure(Win32Error::InvalidName);
  if (wide->empty()) return SysResult::Failure(Win32Error::PathNotFound);
  for (absolute.resize(MAX_PATH);;) {
    const DWORD length =
        GetFullPathNameW(wide->c_str(), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr);
    if (length == 0) return LastFailure();
    const bool fits = length < absolute.size();
    absolute.resize(length);  // without the final zero when it fits, with it when it does not
    if (fits) return {};
  }
}

SysResult NativePath(std::string_view path, std::wstring& native) {
  const SysResult result = AbsolutePath(path, native);
  if (!result || native.size() < kLongFrom || native.starts_with(kLong) || native.starts_with(L"\\\\.\\")) {
    return result;
  }
  if (HasTooLongName(native)) return SysResult::Failure(Win32Error::FilenameExcedRange);
  if (native.starts_with(L"\\\\")) {
    native.replace(0, 2, kLongShare);
  } else {
    native.insert(0, kLong);
  }
  return result;
}

std::string ShownPath(std::wstring_view native) {
  if (native.starts_with(kLongShare)) return "\\\\" + FromWide(native.substr(kLongShare.size()));
  if (native.starts_with(kLong)) native.remove_prefix(kLong.size());
  return FromWide(native);
}
