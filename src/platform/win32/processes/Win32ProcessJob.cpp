#include "platform/win32/processes/Win32ProcessJob.h"

#include <algorithm>

#include "platform/win32/processes/Win32ProcessLaunch.h"

namespace {

struct Closing {
  const std::vector<DWORD>& processes;
  bool asked;
};

BOOL CALLBACK CloseWindowOf(HWND window, LPARAM parameter) {
  auto& closing = *reinterpret_cast<Closing*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  const bool isMain = GetWindow(window, GW_OWNER) == nullptr && IsWindowVisible(window);
  if (isMain && std::ranges::find(closing.processes, process) != closing.processes.end()) {
    closing.asked |= PostMessageW(window, WM_CLOSE, 0, 0) != FALSE;
  }
  return TRUE;
}

}  // namespace

Win32ProcessJob::Win32ProcessJob() : job_(OwnedUnlessNull(CreateJobObjectW(nullptr, nullptr))) {
  SetLimits(JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_BREAKAWAY_OK);
}

bool Win32ProcessJob::Add(HANDLE process) { return job_ && AssignProcessToJobObject(job_.Get(), process); }

void Win32ProcessJob::Release() { SetLimits(JOB_OBJECT_LIMIT_BREAKAWAY_OK); }

void Win32ProcessJob::SetLimits(DWORD flags) const {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = flags;
  SetInformationJobObject(job_.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
}

DWORD Win32ProcessJob::Active() const {
  JOBOBJECT_BASIC_ACCOUNTING_INFORMATION accounting{};
  QueryInformationJobObject(job_.Get(), JobObjectBasicAccountingInformation, &accounting, sizeof accounting,
                            nullptr);
  return accounting.ActiveProcesses;
}

std::vector<DWORD> Win32ProcessJob::Members() const {
  constexpr size_t kMost = 1024;
  std::vector<ULONG_PTR> memory(kMost + sizeof(JOBOBJECT_BASIC_PROCESS_ID_LIST) / sizeof(ULONG_PTR));
  auto* const list = reinterpret_cast<JOBOBJECT_BASIC_PROCESS_ID_LIST*>(memory.data());
  // With more processes than that the call fails and answers the first of them.
  QueryInformationJobObject(job_.Get(), JobObjectBasicProcessIdList, list,
                            static_cast<DWORD>(memory.size() * sizeof(ULONG_PTR)), nullptr);
  std::vector<DWORD> members(list->NumberOfProcessIdsInList);
  std::transform(list->ProcessIdList, list->ProcessIdList + members.size(), members.begin(),
                 [](ULONG_PTR id) { return static_cast<DWORD>(id); });
  return members;
}

bool Win32ProcessJob::Ask(DWORD group) const {
  const std::vector<DWORD> members = Members();
  Closing closing{members, GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, group) != FALSE};
  EnumWindows(CloseWindowOf, reinterpret_cast<LPARAM>(&closing));
  return closing.asked;
}

void Win32ProcessJob::Terminate(UINT exitCode) const { TerminateJobObject(job_.Get(), exitCode); }
