#include <chrono>
#include <condition_variable>
#include <fcntl.h>
#include <mutex>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

#include "platform/ProcessWindows.h"
#include "platform/ProcessesTesting.h"

namespace {

/// A program that runs meanwhile; it tells a number in its first line.
class Background {
 public:
  Background(Processes& processes, const ProcessSetup& setup) {
    output_.atLine = [this](std::string_view line) {
      const std::lock_guard lock(mutex_);
      if (first_.empty()) first_ = line;
      changed_.notify_all();
    };
    thread_ = std::thread([this, &processes, setup] {
      int32_t exitCode = 0;
      processes.Run(setup, &output_, stop_, exitCode);
      const std::lock_guard lock(mutex_);
      exitCode_ = exitCode;
      changed_.notify_all();
    });
  }
  ~Background() {
    stop_.Signal();
    thread_.join();
  }
  Background(const Background&) = delete;
  Background& operator=(const Background&) = delete;

  std::string FirstLine() {
    Await([this] { return !first_.empty() || exitCode_; });
    return first_;
  }
  std::optional<int32_t> ExitCode() {
    Await([this] { return exitCode_.has_value(); });
    return exitCode_;
  }

 private:
  template <class Condition>
  void Await(Condition condition) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, std::chrono::seconds(30), condition);
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::string first_;
  std::optional<int32_t> exitCode_;
  RecordedOutput output_;
  StopEvent stop_;
  std::thread thread_;
};

/// A server without a screen, and a small program with a window.
class ProcessWindowsTest : public ProcessesTest {
 protected:
  void SetUp() override {
    if (Run("sh", "/c command -v Xvfb && command -v xclock") != 0) {
      GTEST_SKIP() << "Xvfb and xclock (packages xvfb and x11-apps) are not installed";
    }
    // Of two servers that start together both may take one number, so the tests take turns.
    turn = open((environment.TempFolder() + "/vektest-display").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    flock(turn, LOCK_EX);
    // Without -noreset it begins anew when a client leaves that was its only one.
    server = std::make_unique<Background>(
        processes, ProcessSetup{.program = "Xvfb", .parameters = "-displayfd 1 -nolisten tcp -noreset"});
    SetVariable("DISPLAY", ":" + server->FirstLine());
    clock = std::make_unique<Background>(
        processes, ProcessSetup{.program = "sh", .parameters = "/c echo $$; exec xclock"});
    number = static_cast<uint32_t>(std::stoul(clock->FirstLine()));
  }
  void TearDown() override {
    clock.reset();
    server.reset();
    SetVariable("DISPLAY", display);
    if (turn >= 0) close(turn);
  }

  /// The program needs a moment to show its window.
  std::optional<WindowId> AwaitWindow() {
    std::optional<WindowId> window;
    for (int attempt = 0; attempt < 300 && !window; ++attempt) {
      window = windows.FindMainWindow(number);
      if (!window) std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return window;
  }

  ProcessWindows& windows = *owner->Get().windows;
  const std::optional<std::string> display = environment.Variable("DISPLAY");
  std::unique_ptr<Background> server, clock;
  uint32_t number = 0;
  int turn = -1;
};

TEST_F(ProcessWindowsTest, ClosingAsksTheProgram) {
  const auto window = AwaitWindow();
  ASSERT_TRUE(window);
  const auto process = windows.OpenProcess(number);
  ASSERT_TRUE(process);
  EXPECT_FALSE(process->EndsWithin(0));
  windows.Post(*window, WindowMessage::Close);
  EXPECT_EQ(clock->ExitCode(), 0);
  EXPECT_TRUE(process->EndsWithin(0));
  EXPECT_FALSE(windows.FindMainWindow(number));
  EXPECT_FALSE(windows.OpenProcess(number));
}

TEST_F(ProcessWindowsTest, QuittingEndsItsConnection) {
  const auto window = AwaitWindow();
  ASSERT_TRUE(window);
  windows.Post(*window, WindowMessage::Quit);
  EXPECT_EQ(clock->ExitCode(), 1) << "the program's own code for a connection that broke";
}

TEST_F(ProcessWindowsTest, AProcessCanBeEndedByForce) {
  const auto process = windows.OpenProcess(number);
  ASSERT_TRUE(process);
  process->Terminate();
  EXPECT_EQ(clock->ExitCode(), 128 + 9);
}

TEST_F(ProcessWindowsTest, WithoutAServerThereIsNoWindow) {
  ASSERT_TRUE(AwaitWindow());
  EXPECT_FALSE(windows.FindMainWindow(number + 1));
  for (const std::optional<std::string>& none :
       {std::optional<std::string>(), std::optional<std::string>(":9999")}) {
    SetVariable("DISPLAY", none);
    EXPECT_FALSE(windows.FindMainWindow(number));
  }
}

}  // namespace
