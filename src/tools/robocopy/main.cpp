#include "platform/CreatePlatform.h"
#include "tools/robocopy/Robocopy.h"

int main(int argc, char** argv) {
  const StringList arguments = StartProgram(argc, argv);
  const auto platform = CreatePlatform({});
  return RunRobocopy(arguments, platform->Get(), platform->GetConsole());
}
