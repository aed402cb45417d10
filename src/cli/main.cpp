#include <exception>
#include <iostream>

#include "cli/Arguments.h"
#include "cli/BuildCommands.h"
#include "cli/CatalogueCommands.h"
#include "platform/CreatePlatform.h"

namespace {

constexpr int kUnusable = 2;

int Dispatch(const Arguments& arguments) {
  switch (arguments.command) {
    case Command::Run:
      return RunProject(arguments);
    case Command::Exec:
      return ExecAction(arguments);
    case Command::Validate:
      return ValidateProject(arguments);
    case Command::Actions:
      return ListActions(arguments);
    case Command::Describe:
      return DescribeAction(arguments);
  }
  return kUnusable;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Arguments arguments;
    if (const auto exitCode = ReadArguments(StartProgram(argc, argv), arguments)) return *exitCode;
    return Dispatch(arguments);
  } catch (const UsageError& error) {
    std::cerr << "vekrun: " << error.message << '\n';
  } catch (const std::exception& error) {
    std::cerr << "vekrun: " << error.what() << '\n';
  }
  return kUnusable;
}
