#pragma once

#include <functional>
#include <mutex>

#include "platform/IniFiles.h"

class Contents;
class IniText;

/// Reads through the system's private-profile functions. They rewrite a file in place, so that a failure in
/// the middle would lose it; hence changes are made to its text here, and the file is replaced in one step.
///
/// The system takes a file without a UTF-16 mark to be in the program's code page, which is UTF-8 by the
/// program's manifest.
class Win32IniFiles final : public IniFiles {
 public:
  explicit Win32IniFiles(Contents& contents) : contents_(contents) {}

  SysResult Read(std::string_view path, std::string_view section, std::string_view key,
                 std::optional<std::string>& value) override;
  SysResult ReadSections(std::string_view path, StringList& names) override;
  SysResult ReadEntries(std::string_view path, std::string_view section,
                        std::vector<IniEntry>& entries) override;
  SysResult Write(std::string_view path, std::string_view section, std::string_view key,
                  std::string_view value) override;
  SysResult WriteEntries(std::string_view path, std::string_view section, std::span<const IniEntry> entries,
                         OtherLines others) override;
  SysResult Delete(std::string_view path, std::string_view section, std::string_view key) override;
  SysResult DeleteSection(std::string_view path, std::string_view section) override;

 private:
  SysResult Load(std::string_view path, IniText& text);
  SysResult Change(std::string_view path, const std::function<bool(IniText&)>& edit);

  Contents& contents_;
  std::mutex mutex_;
};
