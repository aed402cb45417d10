#include <cerrno>
#include <exception>
#include <iostream>

#include "cli/Arguments.h"
#include "cli/BuildCommands.h"
#include "cli/CatalogueCommands.h"
#include "cli/ProjectCommands.h"
#include "host/project/Quoted.h"
#include "platform/CreatePlatform.h"

namespace {

constexpr int kFailed = 1;
constexpr int kUnusable = 2;

int Dispatch(const Arguments& arguments) {
  switch (arguments.command) {
    case Command::Run:
      return RunProject(arguments);
    case Command::Exec:
      return ExecAction(arguments);
    case Command::Validate:
      return ValidateProject(arguments);
    case Command::List:
      return ListProject(arguments);
    case Command::Actions:
      return ListActions(arguments);
    case Command::Describe:
      return DescribeAction(arguments);
    case Command::Schema:
      return PrintSchema(arguments);
    case Command::Completion:
      return PrintCompletion(arguments);
    case Command::Manual:
      return PrintManual();
  }
  return kUnusable;
}

/// Output that could not be written is a failure, whatever it was; but a reader that has read enough, as head
/// does, is none.
int AfterOutput(int exitCode) {
  const bool readerLeft = errno == EPIPE;
  if (std::cout.flush() || readerLeft || errno == EPIPE) return exitCode;
  std::cerr << "vekrun: cannot write the output\n";
  return exitCode == 0 ? kFailed : exitCode;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Arguments arguments;
    const auto settled = ReadArguments(StartProgram(argc, argv), arguments);
    return AfterOutput(settled ? *settled : Dispatch(arguments));
  } catch (const UsageError& error) {
    std::cerr << "vekrun: " << OneLine(error.message) << '\n';
  } catch (const std::exception& error) {
    std::cerr << "vekrun: " << OneLine(error.what()) << '\n';
  } catch (...) {
    std::cerr << "vekrun: unknown exception\n";
  }
  return kUnusable;
}
