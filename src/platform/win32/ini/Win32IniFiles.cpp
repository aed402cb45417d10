#include "platform/win32/ini/Win32IniFiles.h"

#include <algorithm>

#include "platform/Contents.h"
#include "platform/IniText.h"
#include "platform/win32/files/Win32FileTurn.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"

namespace {

// No file holds this character as text: the answer where there is no value.
constexpr wchar_t kNoValue[] = L"\uFFFF";

bool IsMissing(Win32Error code) {
  return code == Win32Error::FileNotFound || code == Win32Error::PathNotFound;
}

/// Calls a private-profile function with more and more room until its answer fits. It then leaves room for
/// the zeros that end a text and a list.
template <class Function>
std::wstring Whole(Function function) {
  for (std::wstring answer(1024, L'\0');; answer.resize(answer.size() * 4)) {
    SetLastError(0);
    const DWORD length = function(answer.data(), static_cast<DWORD>(answer.size()));
    if (length + 2 < answer.size()) return answer.substr(0, length);
  }
}

/// Why a file gave nothing, where that is not because it holds nothing.
SysResult ReadFailure() {
  const SysResult result = LastFailure();
  const bool isRefused = result.code == Win32Error::AccessDenied ||
                         result.code == Win32Error::SharingViolation ||
                         result.code == Win32Error::LockViolation;
  return isRefused ? result : SysResult();
}

/// The texts of a list in which each ends with a zero.
template <class Take>
void ForEachText(std::wstring_view list, Take take) {
  while (!list.empty()) {
    const std::wstring_view text = list.substr(0, list.find(L'\0'));
    if (!text.empty()) take(FromWide(text));
    list.remove_prefix(std::min(text.size() + 1, list.size()));
  }
}

/// The system's functions know a mark of UTF-16; that of UTF-8 they would take for text of the first line.
bool HasUtf8Mark(const std::wstring& native) {
  const Handle file(CreateFileW(native.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  char mark[3];
  DWORD count = 0;
  return file && ReadFile(file.Get(), mark, sizeof mark, &count, nullptr) &&
         std::string_view(mark, count) == "\xEF\xBB\xBF";
}

}  // namespace

SysResult Win32IniFiles::Read(std::string_view path, std::string_view section, std::string_view key,
                              std::optional<std::string>& value) {
  value.reset();
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  if (HasUtf8Mark(native)) {
    IniText text;
    const SysResult loaded = Load(path, text);
    value = text.Find(section, key);
    return loaded;
  }
  const auto wideSection = ToWide(Trim(section)), wideKey = ToWide(Trim(key));
  if (!wideSection || !wideKey) return {};  // a file that is text has no such names
  const std::wstring answer = Whole([&](wchar_t* buffer, DWORD size) {
    return GetPrivateProfileStringW(wideSection->c_str(), wideKey->c_str(), kNoValue, buffer, size,
                                    native.c_str());
  });
  if (answer == kNoValue) return ReadFailure();
  value = FromWide(answer);
  return {};
}

SysResult Win32IniFiles::ReadSections(std::string_view path, StringList& names) {
  names.clear();
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  if (HasUtf8Mark(native)) {
    IniText text;
    const SysResult loaded = Load(path, text);
    names = text.Sections();
    return loaded;
  }
  const std::wstring list = Whole([&](wchar_t* buffer, DWORD size) {
    return GetPrivateProfileSectionNamesW(buffer, size, native.c_str());
  });
  if (list.empty()) return ReadFailure();
  ForEachText(list, [&](std::string name) { names.push_back(std::move(name)); });
  return {};
}

SysResult Win32IniFiles::ReadEntries(std::string_view path, std::string_view section,
                                     std::vector<IniEntry>& entries) {
  entries.clear();
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  if (HasUtf8Mark(native)) {
    IniText text;
    const SysResult loaded = Load(path, text);
    entries = text.Entries(section);
    return loaded;
  }
  const auto wideSection = ToWide(Trim(section));  // not every function of the system does that
  if (!wideSection) return {};
  const std::wstring list = Whole([&](wchar_t* buffer, DWORD size) {
    return GetPrivateProfileSectionW(wideSection->c_str(), buffer, size, native.c_str());
  });
  if (list.empty()) return ReadFailure();
  ForEachText(list, [&](std::string_view line) {
    const size_t equals = line.find('=');
    if (equals == std::string_view::npos || line.starts_with(';')) return;
    entries.push_back(
        {std::string(Trim(line.substr(0, equals))), std::string(IniValue(line.substr(equals + 1)))});
  });
  return {};
}

SysResult Win32IniFiles::Write(std::string_view path, std::string_view section, std::string_view key,
                               std::string_view value) {
  return Change(path, [&](IniText& text) {
    text.Set(section, key, value);
    return true;
  });
}

SysResult Win32IniFiles::WriteEntries(std::string_view path, std::string_view section,
                                      std::span<const IniEntry> entries, OtherLines others) {
  return Change(path, [&](IniText& text) { return text.SetEntries(section, entries, others); });
}

SysResult Win32IniFiles::Delete(std::string_view path, std::string_view section, std::string_view key) {
  return Change(path, [&](IniText& text) { return text.Remove(section, key); });
}

SysResult Win32IniFiles::DeleteSection(std::string_view path, std::string_view section) {
  return Change(path, [&](IniText& text) { return text.RemoveSection(section); });
}

/// A missing file is an empty text.
SysResult Win32IniFiles::Load(std::string_view path, IniText& text) {
  std::string contents;
  const SysResult read = contents_.ReadWhole(path, contents);
  if (!read && !IsMissing(read.code)) return read;
  if (read) text = IniText(std::move(contents));
  return {};
}

SysResult Win32IniFiles::Change(std::string_view path, const std::function<bool(IniText&)>& edit) {
  const std::lock_guard lock(mutex_);
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const FileTurn turn(native);
  if (!turn.Result()) return turn.Result();
  IniText text;
  if (const SysResult loaded = Load(path, text); !loaded) return loaded;
  if (!edit(text)) return {};
  const SysResult replaced = contents_.Replace(path, text.Contents());
  // Whatever the system keeps of the old file.
  WritePrivateProfileStringW(nullptr, nullptr, nullptr, native.c_str());
  return replaced;
}
