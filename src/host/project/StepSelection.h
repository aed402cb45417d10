#pragma once

#include "base/Text.h"
#include "host/project/Project.h"

/// Chooses what of a project runs: with `only` these steps, as they stand in the groups above them, else all;
/// of these none of `skip`. A step goes by its path ("/2/1") or its Name. Raises EProjectError, which names
/// the nearest one, for a text that no step goes by.
void ChooseSteps(Project& project, const StringList& only, const StringList& skip);
