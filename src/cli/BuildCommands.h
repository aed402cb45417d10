#pragma once

#include "cli/Arguments.h"

/// The commands that execute; they answer the exit code and raise EVekError for what cannot be used.
int RunProject(const Arguments& arguments);
int ExecAction(const Arguments& arguments);
