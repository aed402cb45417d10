#include "programs/ChildSystem.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// After windows.h.
#include <shellapi.h>

namespace {

volatile bool noted = false;

std::string Utf8(const wchar_t* text) {
  std::string result(3 * wcslen(text) + 1, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), static_cast<int>(result.size()),
                                       nullptr, nullptr);
  result.resize(static_cast<size_t>(size - 1));
  return result;
}

BOOL WINAPI NoteEvent(DWORD /*event*/) {
  noted = true;
  return TRUE;
}

BOOL WINAPI IgnoreEvent(DWORD /*event*/) { return TRUE; }

}  // namespace

std::vector<std::string> StartChild(int /*argc*/, char** /*argv*/) {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  _setmode(_fileno(stdin), _O_BINARY);
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; words != nullptr && i < count; ++i) arguments.push_back(Utf8(words[i]));
  LocalFree(words);
  return arguments;
}

void IgnoreTermination() { SetConsoleCtrlHandler(IgnoreEvent, TRUE); }

void NoteTermination() { SetConsoleCtrlHandler(NoteEvent, TRUE); }
bool TerminationNoted() { return noted; }

void StartSelf(const std::vector<std::string>& arguments) {
  char file[MAX_PATH];
  GetModuleFileNameA(nullptr, file, sizeof file);
  std::string commandLine = '"' + std::string(file) + '"';
  for (const std::string& argument : arguments) commandLine += ' ' + argument;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                      &process)) {
    return;
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

unsigned long OwnNumber() { return GetCurrentProcessId(); }
