#pragma once

#include <string_view>

/// What vekrun tells the copy tools that its steps start, by variables of the environment.

/// The drives that are mapped, "X=FOLDER" a line.
inline constexpr std::string_view kDrivesVariable = "VEKRUN_DRIVES";

/// The files of the projects that are running, a line each: the folders that hold them are protected.
inline constexpr std::string_view kProjectsVariable = "VEKRUN_PROJECTS";

/// Set where the user allows what protection of folders refuses.
inline constexpr std::string_view kNoPreserveRootVariable = "VEKRUN_NO_PRESERVE_ROOT";
