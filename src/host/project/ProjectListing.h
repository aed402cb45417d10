#pragma once

#include <string>

struct Project;

/// What a project is made of, for people and as JSON: its variables as they are declared, secret ones hidden,
/// its file sets, and its steps by path.
std::string ListProjectAsText(const Project& project);
std::string ListProjectAsJson(const Project& project);
