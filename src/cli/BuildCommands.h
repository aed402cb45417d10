#pragma once

#include "cli/Arguments.h"

/// The commands that execute or check; they answer the exit code and raise EVekError for what cannot be used.
int RunProject(const Arguments& arguments);
int ExecAction(const Arguments& arguments);
int ValidateProject(const Arguments& arguments);
int ListProject(const Arguments& arguments);
