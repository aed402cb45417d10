#pragma once

#include <map>

#include "platform/Environment.h"

class Win32Environment final : public Environment {
 public:
  std::optional<std::string> Variable(std::string_view name) override;
  SysResult Export(std::string_view name, const std::optional<std::string>& text) override;
  std::string CurrentFolder() override;
  SysResult SetCurrentFolder(std::string_view path) override;
  std::string FullPath(std::string_view path) override;
  char PathDelimiter(std::string_view path) override;
  std::string NativePath(std::string_view path) override;
  std::string TempFolder() override;
  uint32_t RandomNumber() override;
  std::string SystemFolder() override;
  std::string HomeFolder() override;
  StringList ReservedFolders() override;
  std::string DataFolder() override;
  std::string ProgramFolder() override;
  std::string CommandInterpreter() override;

 private:
  std::optional<std::string> OwnVariable(const std::string& name);

  std::map<std::string, std::optional<std::string>, LessNoCase>
      own_;  // what was there before it was exported
};
