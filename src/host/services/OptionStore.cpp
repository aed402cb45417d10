#include "host/services/OptionStore.h"

#include <nlohmann/json.hpp>

#include "coreapi/Vekerrors.h"
#include "coreapi/Vekutils.h"
#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/ErrorTexts.h"
#include "platform/Platform.h"

namespace {

/// What lies in the folder "tools" beside this program, and the options that it answers.
constexpr struct {
  std::string_view name, key, tool;
  bool wantsFolder;  // the option is the folder, not the tool
} kTools[] = {
    {"Robocopy", "Location", "robocopy.exe", false},
    {"System", "Directory", "xcopy.exe", true},
};

}  // namespace

/// One object's view of the store.
class OptionStore::Reader final : public IVekOptionsReader {
 public:
  Reader(const OptionStore& store, std::string_view name) : store_(store), name_(name) {}

  std::string ReadString(std::string_view key) const override {
    const std::string* stored = store_.Stored(name_, key);
    return stored ? *stored : std::string();
  }
  std::string SuggestedString(std::string_view key) const override {
    return store_.Stored(name_, key) ? std::string() : store_.Suggested(name_, key);
  }

 private:
  const OptionStore& store_;
  const std::string_view name_;
};

void OptionStore::Load(const Platform& platform) {
  platform_ = &platform;
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
  registered_.push_back({&optionsClass, std::string(bitmapName), nullptr});
}

TVekOptionsObject* OptionStore::FindOptions(std::string_view category, std::string_view name) {
  for (RegisteredOptions& options : registered_) {
    if (options.optionsClass->category != category || options.optionsClass->name != name) continue;
    if (!options.object) {
      options.object = options.optionsClass->create(*platform_);
      options.object->LoadOptions(Reader(*this, options.optionsClass->key));
    }
    return options.object.get();
  }
  return nullptr;
}

std::string OptionStore::ReadOption(std::string_view name, std::string_view key) {
  const std::string* stored = Stored(name, key);
  return stored ? *stored : Suggested(name, key);
}

const std::string* OptionStore::Stored(std::string_view name, std::string_view key) const {
  const auto entries = options_.find(name);
  if (entries == options_.end()) return nullptr;
  const auto entry = entries->second.find(key);
  return entry == entries->second.end() ? nullptr : &entry->second;
}

std::string OptionStore::Suggested(std::string_view name, std::string_view key) const {
  for (const auto& tool : kTools) {
    if (!SameText(tool.name, name) || !SameText(tool.key, key) || !platform_) continue;
    Environment& environment = *platform_->environment;
    const std::string folder =
        environment.FullPath(AsFolder(*platform_, environment.ProgramFolder()) + "tools");
    const std::string file = environment.FullPath(AsFolder(*platform_, folder).append(tool.tool));
    if (platform_->entries->FileExists(file)) return tool.wantsFolder ? folder : file;
  }
  return {};
}
