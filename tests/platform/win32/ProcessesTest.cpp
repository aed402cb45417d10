#include <windows.h>

#include "gmock/gmock.h"

#include "platform/ProcessesTesting.h"

using testing::ElementsAre;

namespace {

using Win32ProcessesTest = ProcessesTest;

TEST_F(Win32ProcessesTest, ExitCodesHaveAllTheirBits) {
  EXPECT_EQ(RunChild("exit 300"), 300);
  EXPECT_EQ(RunChild("exit -1"), -1);
}

TEST_F(Win32ProcessesTest, OutputInTheCodePageOfConsolesIsText) {
  EXPECT_EQ(RunChild("bytes a~x84b~n~xC3~xA4~n"), 0);
  ASSERT_EQ(output.out.size(), 2u);
  EXPECT_TRUE(IsUtf8(output.out[0])) << output.out[0];
  EXPECT_TRUE(output.out[0].starts_with('a') && output.out[0].ends_with('b')) << output.out[0];
  const bool isWestern = GetOEMCP() == 437 || GetOEMCP() == 850;
  EXPECT_TRUE(!isWestern || output.out[0] == "a\u00E4b") << output.out[0];
  EXPECT_EQ(output.out[1], "\xC3\xA4");
}

TEST_F(Win32ProcessesTest, ProgramsAreFoundAsTheSystemFindsThem) {
  folder.Write("My Tools/tool.bat", "@echo %~1\r\n@exit /b 6\r\n");
  EXPECT_EQ(Run(Path("My Tools/tool.bat"), "\"a b\""), 6);
  EXPECT_THAT(output.out, ElementsAre("a b"));
  EXPECT_EQ(Run("cmd", "/c echo one&& echo two"), 0);
  EXPECT_THAT(output.out, ElementsAre("one", "two"));
  folder.Write("text.txt", "x");
  EXPECT_EQ(Run(Path("text.txt")), -1);
  EXPECT_EQ(started.code, Win32Error::BadExeFormat);
}

TEST_F(Win32ProcessesTest, AHiddenWindowChangesNothingElse) {
  EXPECT_EQ(Run({.program = TestChild(), .parameters = "bytes x", .hideWindow = true}), 0);
  EXPECT_THAT(output.out, ElementsAre("x"));
}

}  // namespace
