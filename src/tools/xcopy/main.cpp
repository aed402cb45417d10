#include "platform/CreatePlatform.h"
#include "tools/xcopy/Xcopy.h"

int main(int argc, char** argv) {
  const StringList arguments = StartProgram(argc, argv);
  const auto platform = CreatePlatform({});
  return RunXcopy(arguments, platform->Get(), platform->GetConsole());
}
