#include "host/engine/FailingSettings.h"

#include <algorithm>

#include "coreapi/Vekactionapi.h"

namespace {

constexpr std::string_view kComplaints[] = {"ERROR",   "UNABLE",    "FAILED",  "DOES NOT EXIST",
                                            "MISSING", "NOT FOUND", "MUST BE", "REFUSED"};

}  // namespace

bool IsComplaint(std::string_view words) {
  const std::string text = UpCase(words);
  return std::ranges::any_of(
      kComplaints, [&text](std::string_view complaint) { return text.find(complaint) != std::string::npos; });
}

std::string SettingsThatFail(const TCustomVekAction& action) {
  StringList names;
  for (const PropertyRow* row : action.PropertyRows()) {
    const bool isTruth = row->type == PropertyType::WordBool || row->type == PropertyType::Boolean;
    if (!row->published || !row->stored || !isTruth || !row->name.starts_with("Fail")) continue;
    if (std::get<bool>(row->get(action))) names.emplace_back(row->name);
  }
  if (names.empty()) return {};
  return (names.size() == 1 ? "its setting " : "one of its settings ") + JoinLines(names, ", ");
}
