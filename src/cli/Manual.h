#pragma once

#include <string>

namespace CLI {
class App;
}

/// The page of the manual, for man(1), made of what --help shows.
std::string ManualPage(const CLI::App& app);
