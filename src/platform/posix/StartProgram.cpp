#include "platform/CreatePlatform.h"

StringList StartProgram(int argc, char** argv) {
  return argc > 0 ? StringList(argv + 1, argv + argc) : StringList();
}
