#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>

#include "platform/CreatePlatform.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"
// After windows.h.
#include <shellapi.h>

namespace {

UINT codePageBefore = 0;

/// The console belongs to whoever started this program.
void RestoreCodePage() { SetConsoleOutputCP(codePageBefore); }

}  // namespace

/// The arguments come from the system: those of main are in the code page of the machine, with wildcards
/// expanded by some start-up code.
StringList StartProgram(int /*argc*/, char** /*argv*/) {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  codePageBefore = GetConsoleOutputCP();
  if (codePageBefore != 0 && SetConsoleOutputCP(CP_UTF8)) std::atexit(RestoreCodePage);

  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  StringList arguments;
  for (int i = 1; words && i < count; ++i) arguments.push_back(FromWide(words[i]));
  LocalFree(words);
  return arguments;
}

/// What it runs is in a job, which ends with it.
void EndProgram(int exitCode) {
  if (codePageBefore != 0) RestoreCodePage();
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
  std::_Exit(exitCode);
}
