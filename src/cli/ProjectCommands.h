#pragma once

struct Arguments;

/// The commands that look at a project and execute nothing of it; they answer the exit code and raise
/// EVekError for what cannot be read.
int ValidateProject(const Arguments& arguments);
int ListProject(const Arguments& arguments);
