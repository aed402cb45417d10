#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "coreapi/Vekservices.h"

struct Platform;

/// The host's options: one JSON object per name in the file options.json of the user's data folder, with
/// entries that are set for this run only on top.
class OptionStore final : public IVekOptionsServices {
 public:
  /// Reads the file where there is one; raises EVekError when it is not what it should be.
  void Load(const Platform& platform);

  /// Sets an entry for this run.
  void Override(std::string_view name, std::string_view key, std::string_view value);

  void RegisterOptionsPage(const OptionsClass& optionsClass, std::string_view bitmapName) override;
  std::string ReadOption(std::string_view name, std::string_view key) override;

 private:
  std::map<std::string, std::map<std::string, std::string, LessNoCase>, LessNoCase> options_;
  std::vector<std::pair<const OptionsClass*, std::string>> pages_;
};
