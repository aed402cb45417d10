#include "gmock/gmock.h"

#include "platform/ProcessesTesting.h"
#include "platform/Shell.h"

namespace {

/// Every handler is a script that notes how it was called.
class PosixShellTest : public ProcessesTest {
 protected:
  PosixShellTest() {
    for (const char* name : {"VISUAL", "EDITOR"}) SetVariable(name, std::nullopt);
    SetVariable("PATH", Path("bin"));
  }
  ~PosixShellTest() override { SetVariable("PATH", path); }

  void Install(const std::string& name) {
    folder.Write(name, "#!/bin/sh\necho \"${0##*/} $*,$PWD\" >" + Path("called"));
    SetMode(Path(name), 0755);
  }

  /// What was called, or the error code as a text.
  std::string Execute(const ShellRequest& request) {
    std::unique_ptr<RunningProcess> process;
    const SysResult result = shell.Execute(request, process);
    if (!result) return std::to_string(static_cast<uint32_t>(result.code));
    EXPECT_TRUE(process && process->EndsWithin(30000));
    return ReplaceAll(folder.Read("called"), folder.Path(), "%F%");
  }

  Shell& shell = *owner->Get().shell;
  const std::optional<std::string> path = environment.Variable("PATH");
};

TEST_F(PosixShellTest, AVerbHasItsProgram) {
  folder.Write("sub/Doc.txt", "text");
  const auto open = [this](const std::string& verb) {
    return Execute({.verb = verb, .file = Path("SUB\\doc.txt"), .parameters = "x", .folder = "/"});
  };
  const std::string none = "1155";
  for (const char* verb : {"open", "", "print", "edit", "explore"}) EXPECT_EQ(open(verb), none) << verb;
  EXPECT_EQ(open("RunAs"), "5");
  EXPECT_EQ(Execute({.file = Path("missing")}), "2");

  const std::string file = "%F%/sub/Doc.txt,/\n";
  Install("bin/gio");
  EXPECT_EQ(open("Open"), "gio open " + file);
  Install("bin/xdg-open");
  EXPECT_EQ(open(""), "xdg-open " + file);
  Install("bin/lpr");
  EXPECT_EQ(open("print"), "lpr " + file);
  Install("bin/lp");
  EXPECT_EQ(open("Print"), "lp " + file);
  Install("my ed");
  SetVariable("EDITOR", '"' + Path("my ed") + "\" -w");
  EXPECT_EQ(open("edit"), "my ed -w " + file);
}

TEST_F(PosixShellTest, AProgramIsStartedItself) {
  Install("bin/xdg-open");
  Install("tool");
  EXPECT_EQ(Execute({.file = Path("tool"), .parameters = "a \"b c\"", .folder = Path("bin")}),
            "tool a b c,%F%/bin\n");
  EXPECT_EQ(Execute({.file = Path("tool"), .folder = Path("none")}), "267");
  SetMode(Path("tool"), 0644);
  EXPECT_EQ(Execute({.file = Path("tool"), .folder = "/"}), "xdg-open %F%/tool,/\n");
  // Some file systems mark every document as executable.
  folder.Write("letter.txt", "rm -rf what it says");
  SetMode(Path("letter.txt"), 0755);
  EXPECT_EQ(Execute({.file = Path("letter.txt"), .folder = "/"}), "xdg-open %F%/letter.txt,/\n");
}

}  // namespace
