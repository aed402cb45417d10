#include <memory>
#include <windows.h>

#include "gtest/gtest.h"

#include "platform/CreatePlatform.h"
#include "platform/ProcessWindows.h"
#include "platform/Shell.h"
#include "support/TempFolder.h"
#include "support/TestChild.h"
#include "support/WineLimits.h"

namespace {

struct Win32Shell : testing::Test {
  const TempFolder folder;
  const std::unique_ptr<PlatformOwner> owner = CreatePlatform([](char) { return std::nullopt; });
};

TEST_F(Win32Shell, StartsAProgramAndAnswersIt) {
  if (WineLimits::NoShellItems()) GTEST_SKIP() << "Wine starts nothing by way of a shell item";
  Shell& shell = *owner->Get().shell;
  std::unique_ptr<RunningProcess> process;
  const ShellRequest touch{
      .verb = "open", .file = TestChild(), .parameters = "touch made", .folder = folder.Path()};
  ASSERT_TRUE(shell.Execute(touch, process));
  ASSERT_TRUE(process && process->EndsWithin(30000));
  EXPECT_TRUE(folder.Exists("made"));
  folder.Write("a.vek-of-no-program");
  EXPECT_FALSE(shell.Execute({.verb = "no such verb", .file = folder.Path("a.vek-of-no-program")}, process));
}

/// A window of this thread's own.
class Window {
 public:
  Window(HWND owner, DWORD style)
      : handle_(CreateWindowExW(0, L"STATIC", L"", style, 0, 0, 9, 9, owner, nullptr, nullptr, nullptr)) {}
  ~Window() { DestroyWindow(handle_); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  HWND Get() const { return handle_; }

  bool Received(UINT message) const {
    MSG received;
    while (PeekMessageW(&received, nullptr, 0, 0, PM_REMOVE)) {
      if (received.message == message) return true;
    }
    return false;
  }

 private:
  HWND handle_;
};

using Win32ProcessWindows = Win32Shell;

TEST_F(Win32ProcessWindows, OnlyAVisibleWindowWithoutOwnerCounts) {
  ProcessWindows& windows = *owner->Get().windows;
  const DWORD self = GetCurrentProcessId();
  const Window hidden(nullptr, WS_OVERLAPPED);
  if (hidden.Get() == nullptr) GTEST_SKIP() << "this session has no windows";
  EXPECT_FALSE(windows.FindMainWindow(self));
  const Window owned(hidden.Get(), WS_POPUP | WS_VISIBLE);
  EXPECT_FALSE(windows.FindMainWindow(self));
  const Window shown(nullptr, WS_OVERLAPPED | WS_VISIBLE);
  const auto found = windows.FindMainWindow(self);
  ASSERT_TRUE(found);
  EXPECT_EQ(static_cast<uintptr_t>(*found), reinterpret_cast<uintptr_t>(shown.Get()));
  windows.Post(*found, WindowMessage::Close);
  EXPECT_TRUE(shown.Received(WM_CLOSE));
  windows.Post(*found, WindowMessage::Quit);
  EXPECT_TRUE(shown.Received(WM_QUIT));
  const auto process = windows.OpenProcess(self);
  ASSERT_TRUE(process);
  EXPECT_FALSE(process->EndsWithin(1));
}

}  // namespace
