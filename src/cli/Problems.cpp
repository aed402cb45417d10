#include "cli/Problems.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "host/project/Quoted.h"

void PrintProblems(const std::vector<Problem>& problems, std::ostream& stream) {
  for (const Problem& problem : problems) {
    std::string text = problem.file;
    if (problem.line > 0) text += ':' + std::to_string(problem.line);
    text += ": " + problem.path + (problem.type.empty() ? "" : ' ' + problem.type);
    if (!problem.path.empty()) text += ": ";
    if (!problem.title.empty()) text += problem.title + ": ";
    stream << OneLine(text + problem.message) << '\n';
  }
}

void PrintProblemsAsJson(const std::vector<Problem>& problems, std::ostream& stream) {
  auto array = nlohmann::ordered_json::array();
  for (const Problem& problem : problems) {
    array.push_back({{"file", problem.file},
                     {"line", problem.line},
                     {"path", problem.path},
                     {"type", problem.type},
                     {"title", problem.title},
                     {"message", problem.message}});
  }
  stream << array.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}
