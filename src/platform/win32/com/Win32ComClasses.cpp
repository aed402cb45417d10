#include "platform/win32/com/Win32ComClasses.h"

#include "platform/win32/system/Win32ComScope.h"
#include "platform/win32/system/Win32Text.h"

bool Win32ComClasses::CanCreate(std::string_view classId) {
  const Win32ComScope com;
  CLSID id{};
  if (FAILED(CLSIDFromString(ToWideShown(classId).c_str(), &id))) return false;
  IUnknown* object = nullptr;
  const HRESULT created = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                           IID_IUnknown, reinterpret_cast<void**>(&object));
  if (FAILED(created) || object == nullptr) return false;
  object->Release();
  return true;
}

std::optional<std::string> Win32ComClasses::ClassIdOf(std::string_view progId) {
  const Win32ComScope com;
  CLSID id{};
  if (FAILED(CLSIDFromProgID(ToWideShown(progId).c_str(), &id))) return {};
  wchar_t text[sizeof "{00000000-0000-0000-0000-000000000000}"] = {};
  const int length = StringFromGUID2(id, text, static_cast<int>(std::size(text)));
  if (length == 0) return {};
  return FromWide(text);
}
