#pragma once

#include <string>
#include <string_view>

class TCustomVekAction;

/// Whether an action's own words tell of something that went wrong.
bool IsComplaint(std::string_view words);

/// The settings of an action that make it fail where it would not have to, as far as they are on: "its
/// setting FailIfNoFile", "one of its settings A, B". Those that only older projects set are left out.
std::string SettingsThatFail(const TCustomVekAction& action);
