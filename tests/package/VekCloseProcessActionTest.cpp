#include "gmock/gmock.h"

#include "process/VekCloseProcessAction.h"
#include "support/Exchanged.h"

using testing::ElementsAre;

namespace {

/// One process with one window, which ends after so many waits.
class OneProcess final : public ProcessWindows {
 public:
  static constexpr uint32_t kId = 41;
  int rounds = 0;
  bool opens = true;
  StringList done;

  std::optional<WindowId> FindMainWindow(uint32_t processId) override {
    return processId == kId ? std::optional(WindowId{7}) : std::nullopt;
  }
  void Post(WindowId /*window*/, WindowMessage message) override {
    done.emplace_back(message == WindowMessage::Close ? "close" : "quit");
  }
  std::unique_ptr<RunningProcess> OpenProcess(uint32_t /*processId*/) override {
    return opens ? std::make_unique<Process>(*this) : nullptr;
  }

 private:
  class Process final : public RunningProcess {
   public:
    explicit Process(OneProcess& owner) : owner_(owner) {}
    bool EndsWithin(uint32_t /*milliseconds*/) override { return --owner_.rounds < 0; }
    void Terminate() override { owner_.done.emplace_back("end"); }

   private:
    OneProcess& owner_;
  };
};

struct CloseProcessTest : testing::Test {
  OneProcess windows;
  ActionFixture fixture{Exchanged(&Platform::windows, windows)};
  std::unique_ptr<TVekCloseProcessAction> action = fixture.Make<TVekCloseProcessAction>();
};

TEST_F(CloseProcessTest, WhichProcess) {
  const struct {
    std::string id;
    uint32_t number;
    std::string line;
  } cases[] = {
      {" 41 ", 41, "Closing Process with ID 41"},
      {"42", 42, "Closing Process with ID 42"},
      {"-1", 4294967295, "Closing Process with ID 4294967295"},
      {"abc", 99999999, "Invalid Process ID : 99999999"},
      {"99999999", 99999999, "Invalid Process ID : 99999999"},
      {"4294967296", 99999999, "Invalid Process ID : 99999999"},
  };
  for (const auto& [id, number, line] : cases) {
    action->ProcessID = id;
    EXPECT_EQ(fixture.Run(*action), number == OneProcess::kId) << id;
    EXPECT_EQ(action->ProcessIDInt(), number);
    EXPECT_EQ(fixture.Lines().front(), line);
    if (number == 42) {
      EXPECT_EQ(fixture.Lines().back(), "A window handle for the desired process ID could not be found.");
    }
  }
}

TEST_F(CloseProcessTest, AsksAndThenForces) {
  const std::string closes = "Sending main window a WM_CLOSE message";
  const std::string quits = "Sending main window a WM_QUIT message";
  const std::string timedOut = "Timed out waiting for process to close. Terminating process.";
  const struct {
    bool close, timeout;
    int32_t limit;
    int rounds;
    bool opens;
    StringList done, lines;
  } cases[] = {
      {true, false, 0, 1000, true, {"close"}, {closes}},
      {false, false, 3, 1000, true, {"quit"}, {quits}},
      {true, true, 3, 30, true, {"close"}, {closes}},
      {true, true, 3, 31, true, {"close", "end"}, {closes, timedOut}},
      {false, true, 0, 1, true, {"quit", "end"}, {quits, timedOut}},
      {false, true, 0, 0, true, {"quit"}, {quits}},
      {false, true, -5, 1, true, {"quit", "end"}, {quits, timedOut}},
      {true, true, 3, 1000, false, {"close"}, {closes}},
  };
  action->ProcessID = "41";
  for (const auto& test : cases) {
    windows.done = {};
    windows.rounds = test.rounds;
    windows.opens = test.opens;
    action->SendWMClose = test.close;
    action->Timeout = test.timeout;
    action->TimeoutLimit = test.limit;
    EXPECT_TRUE(fixture.Run(*action));
    EXPECT_EQ(windows.done, test.done);
    EXPECT_EQ(StringList(fixture.Lines().begin() + 1, fixture.Lines().end()), test.lines);
  }
}

}  // namespace
