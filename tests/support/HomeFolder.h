#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

#include "support/OsFixture.h"

/// Gives the user another home folder for as long as it lives.
class HomeFolder {
 public:
  explicit HomeFolder(const std::string& path) {
    for (auto& [name, before] : before_) {
      if (const char* value = std::getenv(name)) before = value;
      SetVariable(name, path);
    }
  }
  ~HomeFolder() {
    for (const auto& [name, before] : before_) SetVariable(name, before);
  }
  HomeFolder(const HomeFolder&) = delete;
  HomeFolder& operator=(const HomeFolder&) = delete;

 private:
  std::map<const char*, std::optional<std::string>> before_{{"HOME", {}}, {"USERPROFILE", {}}};
};
