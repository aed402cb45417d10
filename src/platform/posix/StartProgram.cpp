#include <fcntl.h>

#include "platform/CreatePlatform.h"

StringList StartProgram(int argc, char** argv) {
  // A standard stream that is closed must not become the first file that is opened. What is written to these
  // fails, and is reported as such.
  for (int stream = 0; stream <= 2; ++stream) {
    if (fcntl(stream, F_GETFD) < 0 && open("/dev/null", O_RDONLY) < 0) break;
  }
  return argc > 0 ? StringList(argv + 1, argv + argc) : StringList();
}
