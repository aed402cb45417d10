#pragma once

#include <iosfwd>
#include <vector>

#include "host/validation/ProjectCheck.h"

/// Problems of a project, a line each: "p.vekproj:12: /1/2 HDELETE_FILE: File Spec: ..."; or as JSON.
void PrintProblems(const std::vector<Problem>& problems, std::ostream& stream);
void PrintProblemsAsJson(const std::vector<Problem>& problems, std::ostream& stream);
