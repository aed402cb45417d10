#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/win32/system/Win32Api.h"

/// Opens an existing file just as far as replacing it needs: refused while another program holds it.
Handle OpenToReplace(const std::wstring& native);

/// The file in its own spelling, where a link leads to in the end; the path itself when that cannot be told.
std::wstring FinalPath(const Handle& file, const std::wstring& native);

/// A new file beside the target; deleted unless it took the target's place.
class NewFile {
 public:
  NewFile() = default;
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();

  SysResult Create(const std::wstring& target, std::string_view contents);

  /// `make(name)` makes the file; FileExists from it is answered with another name.
  using Make = std::function<SysResult(const std::wstring& name)>;
  SysResult CreateBy(const std::wstring& target, const Make& make);

  /// The file that stands there after that has `attributes`, unless they say that there was none.
  SysResult TakePlaceOf(const std::wstring& target, DWORD attributes);

  /// Under that name, as it is; `flags` are those of MoveFileEx.
  SysResult KeepAs(const std::wstring& target, DWORD flags);

 private:
  std::wstring name_;
};
