#include "platform/win32/files/Win32TemporaryName.h"

#include <atomic>
#include <cwchar>
#include <mutex>
#include <set>

#include "platform/win32/system/Win32Api.h"

namespace {

constexpr std::wstring_view kPrefix = L"~vek", kSuffix = L".tmp", kDigits = L"0123456789";

/// The process that a name tells.
DWORD OwnerOf(std::wstring_view name) {
  return static_cast<DWORD>(std::wcstoul(std::wstring(name.substr(kPrefix.size())).c_str(), nullptr, 10));
}

bool Runs(DWORD process) {
  const Handle handle(OpenProcess(SYNCHRONIZE, FALSE, process));
  // One that may not be opened does run. The handle of a missing one is null.
  if (handle.Get() == nullptr) return LastError() != Win32Error::InvalidParameter;
  return WaitForSingleObject(handle.Get(), 0) == WAIT_TIMEOUT;
}

bool IsFirstTime(const std::wstring& folder) {
  static std::mutex mutex;
  static std::set<std::wstring> swept;
  const std::lock_guard lock(mutex);
  return swept.insert(folder).second;
}

}  // namespace

std::wstring TemporaryName() {
  static std::atomic<unsigned> counter;
  return std::wstring(kPrefix) + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter) +
         std::wstring(kSuffix);
}

bool IsTemporaryName(std::wstring_view name) {
  if (!name.starts_with(kPrefix) || !name.ends_with(kSuffix)) return false;
  if (name.size() <= kPrefix.size() + kSuffix.size()) return false;
  const std::wstring_view middle = name.substr(kPrefix.size(), name.size() - kPrefix.size() - kSuffix.size());
  const size_t dash = middle.find(L'-');
  return dash != 0 && dash != std::wstring_view::npos && dash + 1 < middle.size() &&
         middle.substr(0, dash).find_first_not_of(kDigits) == std::wstring_view::npos &&
         middle.substr(dash + 1).find_first_not_of(kDigits) == std::wstring_view::npos;
}

void SweepOnce(const std::wstring& folder) {
  if (!IsFirstTime(folder)) return;
  WIN32_FIND_DATAW data;
  const std::wstring spec = folder + std::wstring(kPrefix) + L"*" + std::wstring(kSuffix);
  const HANDLE search = FindFirstFileW(spec.c_str(), &data);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    if (!IsTemporaryName(data.cFileName) || Runs(OwnerOf(data.cFileName))) continue;
    const std::wstring file = folder + data.cFileName;
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(file.c_str());
  } while (FindNextFileW(search, &data));
  FindClose(search);
}
