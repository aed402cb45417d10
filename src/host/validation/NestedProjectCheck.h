#pragma once

#include <functional>
#include <string>
#include <string_view>

struct ActionNode;
struct Platform;

/// Calls `report(property, message)` for what a step that runs another project would fail with, as far as it
/// is written without expressions. Does not look into that project.
void CheckNestedProject(const ActionNode& node, const Platform& platform,
                        const std::function<void(std::string_view property, std::string message)>& report);
