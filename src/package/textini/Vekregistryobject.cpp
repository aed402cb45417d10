#include "textini/Vekregistryobject.h"

#include "coreapi/Vekerrors.h"
#include "platform/ErrorTexts.h"
#include "platform/Platform.h"
#include "platform/Registry.h"

namespace {

std::string Complaint(std::string_view complaint, std::string_view name) {
  return std::string(complaint).append(" for '").append(name).append("'");
}

EVekError InvalidType(std::string_view name) { return EVekError(Complaint("Invalid data type", name)); }

}  // namespace

TVekRegistry::TVekRegistry(const Platform& platform, uint32_t rootKey, uint32_t access)
    : platform_(platform), rootKey_(rootKey), access_(access) {}

TVekRegistry::~TVekRegistry() = default;

SysResult TVekRegistry::OpenKey(std::string_view path, bool canCreate) {
  const RegistryOpen mode = canCreate ? RegistryOpen::CreateMissing : RegistryOpen::Existing;
  const SysResult opened = platform_.registry->Open(rootKey_, path, access_, mode, key_);
  if (opened.code == Win32Error::BadRegistry) throw EVekError(platform_.registry->Damage());
  return opened;
}

bool TVekRegistry::ValueExists(std::string_view name) const {
  RegistryValue value;
  return key_->Read(name, value).code != Win32Error::FileNotFound;
}

SysResult TVekRegistry::DeleteValue(std::string_view name) const { return key_->Delete(name); }

std::string TVekRegistry::ReadString(std::string_view name) const {
  RegistryValue value;
  Check(key_->Read(name, value), "Failed to get data", name);
  if (value.type != RegistryType::String && value.type != RegistryType::ExpandString) throw InvalidType(name);
  return std::move(value.data);
}

uint32_t TVekRegistry::ReadDWord(std::string_view name) const {
  RegistryValue value;
  Check(key_->Read(name, value), "Failed to get data", name);
  if (value.type != RegistryType::DWord || value.data.size() != 4) throw InvalidType(name);
  uint32_t number = 0;
  for (size_t i = 4; i-- > 0;) number = number << 8 | static_cast<unsigned char>(value.data[i]);
  return number;
}

int32_t TVekRegistry::ReadInteger(std::string_view name) const {
  return static_cast<int32_t>(ReadDWord(name));
}

bool TVekRegistry::ReadBool(std::string_view name) const { return ReadDWord(name) != 0; }

void TVekRegistry::WriteString(std::string_view name, std::string_view value) const {
  Write(name, RegistryType::String, std::string(value));
}

void TVekRegistry::WriteDWord(std::string_view name, uint32_t value) const {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes.push_back(static_cast<char>(value >> 8 * i & 0xFF));
  Write(name, RegistryType::DWord, std::move(bytes));
}

void TVekRegistry::WriteBool(std::string_view name, bool value) const { WriteDWord(name, value ? 1 : 0); }

void TVekRegistry::Write(std::string_view name, RegistryType type, std::string data) const {
  Check(key_->Write(name, {type, std::move(data)}), "Failed to set data", name);
}

/// Tells of a value that is simply missing without the system's word.
void TVekRegistry::Check(const SysResult& result, std::string_view complaint, std::string_view name) const {
  if (result) return;
  if (result.code == Win32Error::BadRegistry) throw EVekError(platform_.registry->Damage());
  const std::string text = Complaint(complaint, name);
  if (result.code == Win32Error::FileNotFound) throw EVekError(text);
  throw EVekError(text + ": " + platform_.errorTexts->Text(result.code));
}
