#include "host/services/OptionStore.h"

#include <nlohmann/json.hpp>

#include "coreapi/Vekerrors.h"
#include "coreapi/Vekutils.h"
#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/ErrorTexts.h"
#include "platform/Platform.h"

void OptionStore::Load(const Platform& platform) {
  const std::string file =
      platform.environment->FullPath(AsFolder(platform, platform.environment->DataFolder()) + "options.json");
  std::string text;
  const SysResult read = platform.contents->ReadWhole(file, text);
  // A data folder that this user may not look into is as good as none.
  if (!read && !platform.entries->EntryExists(file)) return;
  if (!read) throw EVekError("option store " + file + ": " + platform.errorTexts->Text(read.code));

  const auto root = nlohmann::json::parse(text, nullptr, false);
  const EVekError malformed("option store " + file +
                            R"(: it must be JSON of the form {"Name": {"Key": "value"}})");
  if (!root.is_object()) throw malformed;
  for (const auto& [name, entries] : root.items()) {
    if (!entries.is_object()) throw malformed;
    for (const auto& [key, value] : entries.items()) {
      if (!value.is_string()) throw malformed;
      Override(name, key, value.get_ref<const std::string&>());
    }
  }
}

void OptionStore::Override(std::string_view name, std::string_view key, std::string_view value) {
  options_[std::string(name)][std::string(key)] = value;
}

void OptionStore::RegisterOptionsPage(const OptionsClass& optionsClass, std::string_view bitmapName) {
  pages_.emplace_back(&optionsClass, bitmapName);
}

std::string OptionStore::ReadOption(std::string_view name, std::string_view key) {
  const auto entries = options_.find(name);
  if (entries == options_.end()) return {};
  const auto entry = entries->second.find(key);
  return entry == entries->second.end() ? std::string() : entry->second;
}
