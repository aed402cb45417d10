#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "coreapi/Vekoptions.h"
#include "coreapi/Vekservices.h"

struct Platform;

/// The host's options: one JSON object per name in the file options.json of the user's data folder, with
/// entries that are set for this run only on top. For what is not set at all it knows the copy tools that may
/// lie beside this program, in the folder "tools".
class OptionStore final : public IVekOptionsServices {
 public:
  /// Reads the file where there is one; raises EVekError when it is not what it should be.
  void Load(const Platform& platform);

  /// Sets an entry for this run.
  void Override(std::string_view name, std::string_view key, std::string_view value);

  /// Drops what was registered, before the packages that it belongs to are gone.
  void Unregister() { registered_.clear(); }

  void RegisterOptionsPage(const OptionsClass& optionsClass, std::string_view bitmapName) override;
  TVekOptionsObject* FindOptions(std::string_view category, std::string_view name) override;
  std::string ReadOption(std::string_view name, std::string_view key) override;

 private:
  class Reader;
  struct RegisteredOptions {
    const OptionsClass* optionsClass;
    std::string bitmapName;
    std::unique_ptr<TVekOptionsObject> object;  // made when it is first asked for
  };

  const std::string* Stored(std::string_view name, std::string_view key) const;
  std::string Suggested(std::string_view name, std::string_view key) const;

  const Platform* platform_ = nullptr;
  std::map<std::string, std::map<std::string, std::string, LessNoCase>, LessNoCase> options_;
  std::vector<RegisteredOptions> registered_;
};
