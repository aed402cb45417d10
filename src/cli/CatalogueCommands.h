#pragma once

#include "cli/Arguments.h"

/// The commands that show what the packages hold; they answer the exit code and raise EVekError.
int ListActions(const Arguments& arguments);
int DescribeAction(const Arguments& arguments);
int PrintSchema(const Arguments& arguments);
int PrintCompletion(const Arguments& arguments);
int PrintManual();
