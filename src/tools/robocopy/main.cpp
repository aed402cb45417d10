#include "tools/ToolPlatform.h"
#include "tools/robocopy/Robocopy.h"

int main(int argc, char** argv) {
  const StringList arguments = StartProgram(argc, argv);
  const auto platform = CreateToolPlatform();
  return RunRobocopy(arguments, platform->Get(), platform->GetConsole());
}
