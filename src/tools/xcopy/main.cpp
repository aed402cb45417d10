#include "tools/ToolPlatform.h"
#include "tools/xcopy/Xcopy.h"

int main(int argc, char** argv) {
  const StringList arguments = StartProgram(argc, argv);
  const auto platform = CreateToolPlatform();
  return RunXcopy(arguments, platform->Get(), platform->GetConsole());
}
