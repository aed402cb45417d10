#include "gmock/gmock.h"

#include "coreapi/Vekerrors.h"
#include "coreapi/Vekprocess.h"
#include "coreapi/Vekscripts.h"
#include "platform/CreatePlatform.h"
#include "platform/Platform.h"
#include "support/SystemText.h"
#include "support/TempFolder.h"
#include "support/TestChild.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

struct RecordedEvents final : IVekProcessEvents {
  StringList lines;
  IVekProcess* from = nullptr;
  bool terminates = false;

  void OnStdOutData(IVekProcess& process, std::string_view data) override { Add("out ", process, data); }
  void OnStdErrData(IVekProcess& process, std::string_view data) override { Add("err ", process, data); }
  void Add(std::string kind, IVekProcess& process, std::string_view data) {
    lines.push_back(kind.append(data));
    from = &process;
    if (terminates) process.ScriptObject().Call("terminate", {});
  }
};

struct VekProcess : testing::Test {
  VekProcess() {
    process->SetProgramFile(TestChild());
    process->SetEventSink(&events);
  }
  int32_t RunWith(std::string_view parameters) {
    events.lines.clear();
    process->SetParameters(parameters);
    return process->Run();
  }
  std::string ErrorOf(IVekProcess& failing) {
    try {
      failing.Run();
    } catch (const EVekError& error) {
      return error.what();
    }
    return "(none)";
  }

  TempFolder folder;
  std::unique_ptr<PlatformOwner> owner = CreatePlatform([](char) { return std::nullopt; });
  const Platform& platform = owner->Get();
  RecordedEvents events;
  StopEvent stop;
  std::unique_ptr<IVekProcess> process = CreateVekProcess(platform);
};

TEST_F(VekProcess, DeliversLinesAndAnswersTheExitCode) {
  EXPECT_EQ(RunWith("bytes a~n~nb e"), 0);
  EXPECT_THAT(events.lines, UnorderedElementsAre("out a", "out ", "out b", "err e"));
  EXPECT_EQ(events.from, process.get());
  EXPECT_EQ(RunWith("exit 5"), 5);
  EXPECT_THAT(events.lines, IsEmpty());
}

TEST_F(VekProcess, SettingsShapeWhatIsDelivered) {
  process->SetDeliverEmptyLines(false);
  process->SetJoinErrorOutput(true);
  EXPECT_EQ(RunWith("bytes a~n~n e~n~n"), 0);
  EXPECT_THAT(events.lines, UnorderedElementsAre("out a", "out e"));
  process->SetCaptureOutput(false);
  EXPECT_EQ(RunWith("exit 2"), 2);
  EXPECT_THAT(events.lines, IsEmpty());
}

TEST_F(VekProcess, IsStoppedByItsEventItsTimeOrAScript) {
  stop.Signal();
  process->SetStopEvent(&stop);
  EXPECT_EQ(RunWith("exit 0"), 999);
  process->SetStopEvent(nullptr);
  process->SetTimeoutSeconds(1);
  EXPECT_EQ(RunWith("sleep 60 ready"), 999);
  process->SetTimeoutSeconds(-1);
  EXPECT_EQ(RunWith("exit 0"), 0);
  events.terminates = true;
  EXPECT_EQ(RunWith("sleep 60 ready"), 999);
}

TEST_F(VekProcess, RaisesWithTheSystemsWordForIt) {
  const std::string missing = folder.Path("missing.exe");
  process->SetProgramFile(missing);
  EXPECT_EQ(ErrorOf(*process), '"' + missing + "\": " + SystemText(Win32Error::FileNotFound));
  process->SetWaitForCompletion(false);
  EXPECT_EQ(ErrorOf(*process), '"' + missing + "\": " + SystemText(Win32Error::FileNotFound));
  process->SetProgramFile(TestChild());
  process->SetStartDirectory(folder.Path("none"));
  EXPECT_EQ(ErrorOf(*process), '"' + folder.Path("none") + "\": " + SystemText(Win32Error::Directory));
}

TEST_F(VekProcess, ScriptsSeeItsSettings) {
  process->SetParameters("a b");
  process->SetHideWindow(true);
  IVekScriptObject& object = process->ScriptObject();
  Variant value;
  EXPECT_TRUE(object.GetMember("programfile", value));
  EXPECT_EQ(value, Variant(TestChild()));
  EXPECT_TRUE(object.GetMember("Parameters", value));
  EXPECT_EQ(value, Variant(std::string("a b")));
  EXPECT_TRUE(object.GetMember("HideWindow", value));
  EXPECT_EQ(value, Variant(true));
  EXPECT_FALSE(object.GetMember("Other", value));
  EXPECT_FALSE(object.SetMember("Other", value));
  EXPECT_THROW(object.SetMember("Parameters", value), EVekError);
  EXPECT_THROW(object.Call("Other", {}), EVekError);
}

TEST_F(VekProcess, RunProcessFillsAList) {
  StringList lines;
  EXPECT_EQ(RunProcess(platform, TestChild(), "bytes a~nb~n c~n", true, true, "", &lines, stop), 0);
  EXPECT_THAT(lines, UnorderedElementsAre("a", "b", "c"));
  lines.clear();
  folder.MakeFolder("Sub");
  EXPECT_EQ(RunProcess(platform, TestChild(), "where", true, true, folder.Path("Sub"), &lines, stop), 0);
  EXPECT_THAT(lines, ElementsAre(testing::EndsWith("/Sub")));
  EXPECT_EQ(RunProcess(platform, TestChild(), "exit 7", true, true, "", nullptr, stop), 7);
  EXPECT_EQ(RunProcess(platform, TestChild(), "exit 7", true, false, "", nullptr, stop), 0);
  EXPECT_THROW(RunProcess(platform, folder.Path("missing.exe"), "", true, true, "", nullptr, stop),
               EVekError);
}

}  // namespace
