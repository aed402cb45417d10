#include "support/RunProgram.h"

#include <stdexcept>
#include <thread>
#include <windows.h>

#include "platform/win32/system/Win32Text.h"

namespace {

std::wstring Wide(std::string_view text) { return ToWide(text).value(); }

/// Both ends of a pipe; the child inherits one of them.
struct Pipe {
  Pipe() {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    if (!CreatePipe(&read, &write, &inherited, 0)) throw std::runtime_error("CreatePipe");
  }
  ~Pipe() { Close(read), Close(write); }
  static void Close(HANDLE& end) {
    if (end) CloseHandle(end);
    end = nullptr;
  }
  static void Keep(HANDLE end) { SetHandleInformation(end, HANDLE_FLAG_INHERIT, 0); }

  HANDLE read = nullptr, write = nullptr;
};

/// One argument, quoted so that the program's start-up code finds it as it was.
std::wstring Quoted(std::wstring_view argument) {
  std::wstring text = L"\"";
  size_t backslashes = 0;
  for (const wchar_t c : argument) {
    if (c == L'"') text.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    text += c;
  }
  return text.append(backslashes, L'\\') + L'"';
}

/// The test's variables behind the given ones: the first of a name counts.
std::wstring Environment(const StringList& extra) {
  std::wstring block;
  for (const std::string& entry : extra) block += Wide(entry) + L'\0';
  wchar_t* const own = GetEnvironmentStringsW();
  for (const wchar_t* entry = own; *entry; entry += wcslen(entry) + 1) block.append(entry).push_back(L'\0');
  FreeEnvironmentStringsW(own);
  return block + L'\0';
}

/// Reads until the writer closes, or until so many bytes have come, and interrupts it where that is wanted.
void ReadAll(HANDLE& end, std::string& text, const ProgramSetup& setup = {}) {
  char buffer[65536];
  bool interrupted = setup.interruptAt.empty();
  for (DWORD count = 0; ReadFile(end, buffer, sizeof buffer, &count, nullptr) && count > 0;) {
    text.append(buffer, count);
    if (!interrupted && text.find(setup.interruptAt) != std::string::npos) {
      GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
      interrupted = true;
    }
    if (setup.closeOutputAfter != 0 && text.size() >= setup.closeOutputAfter) break;
  }
  Pipe::Close(end);
}

BOOL WINAPI IgnoreEvent(DWORD /*event*/) { return TRUE; }

/// Lets this program and those that it starts from now on be reached by Ctrl-C, and this one outlive it.
void ShareConsoleOfOwn() {
  [[maybe_unused]] static const BOOL kReady = [] {
    FreeConsole();
    return AllocConsole() && SetConsoleCtrlHandler(IgnoreEvent, TRUE);
  }();
}

std::string Native(std::string file) {
  for (char& c : file) c = c == '/' ? '\\' : c;
  return file;
}

}  // namespace

ProgramResult RunProgram(const std::string& file, const StringList& arguments, const ProgramSetup& setup) {
  if (!setup.interruptAt.empty()) ShareConsoleOfOwn();
  Pipe in, out, err;
  Pipe::Keep(in.write), Pipe::Keep(out.read), Pipe::Keep(err.read);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = in.read, startup.hStdOutput = out.write, startup.hStdError = err.write;

  std::wstring commandLine = Quoted(Wide(Native(file)));
  for (const std::string& argument : arguments) commandLine += L' ' + Quoted(Wide(argument));
  std::wstring environment = Environment(setup.environment);
  const std::wstring folder = Wide(Native(setup.folder));
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, CREATE_UNICODE_ENVIRONMENT,
                      environment.data(), folder.empty() ? nullptr : folder.c_str(), &startup, &process)) {
    throw std::runtime_error("cannot start " + file);
  }
  CloseHandle(process.hThread);
  Pipe::Close(in.read), Pipe::Close(out.write), Pipe::Close(err.write);

  ProgramResult result;
  std::thread readOut([&] { ReadAll(out.read, result.out, setup); });
  std::thread readErr([&] { ReadAll(err.read, result.err); });
  DWORD written = 0;
  if (!setup.input.empty()) {
    WriteFile(in.write, setup.input.data(), static_cast<DWORD>(setup.input.size()), &written, nullptr);
  }
  Pipe::Close(in.write);
  readOut.join(), readErr.join();
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD exitCode = 0;
  GetExitCodeProcess(process.hProcess, &exitCode);
  CloseHandle(process.hProcess);
  result.exitCode = static_cast<int>(exitCode);
  return result;
}

std::string DataFolderIn(const std::string& folder) { return "LOCALAPPDATA=" + folder; }

ProgramResult RunVekrun(const StringList& arguments, const ProgramSetup& setup) {
  return RunProgram(VEK_BIN_DIR "/vekrun.exe", arguments, setup);
}
