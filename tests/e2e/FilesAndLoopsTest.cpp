#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/Vekrun.h"

using testing::ElementsAre;

namespace {

constexpr const char* kFileSets = R"(<FileSets>
  <FileSet Name="Texts" BaseDirectory="%PROJECTDIR%\src"><Include>**\*.txt</Include></FileSet>
</FileSets>)";

struct FilesAndLoops : testing::Test {
  VekrunResult RunActions(const std::string& actions, const StringList& options = {}) {
    std::string text = ProjectOf(actions);
    folder.Write("p.vekproj", text.insert(text.find("<Actions>"), kFileSets));
    StringList arguments{"run", folder.Path("p.vekproj")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunJsonl(arguments);
  }

  /// What the build logged, with '/' in paths and those of the test's folder relative.
  StringList Messages(const VekrunResult& result) {
    StringList lines;
    for (const auto& event : result.Of("message")) {
      const std::string text = ReplaceAll(event.at("text").get<std::string>(), "\\", "/");
      lines.push_back(ReplaceAll(text, ReplaceAll(folder.Path(), "\\", "/") + '/', ""));
    }
    return lines;
  }

  TempFolder folder;
};

std::string Log(const std::string& expression) {
  return "<Action Type=\"SCRIPTACTION\"><Script Event=\"OnExecute\">Vek.Log(" + expression +
         ");</Script></Action>";
}

TEST_F(FilesAndLoops, AFileSetIsCopiedWithItsFoldersAndProgress) {
  folder.Write("src/a.txt", "1");
  folder.Write("src/sub/b.txt", "22");
  folder.Write("src/c.bin", "3");
  const auto result = RunActions(ActionOf("FILESETCOPY",
                                          "<FileSetName>texts</FileSetName><RecreateHierarchy>True"
                                          "</RecreateHierarchy><DestinationFolder>%PROJECTDIR%\\to"
                                          "</DestinationFolder>"));
  EXPECT_EQ(result.exitCode, 0) << result.out;
  EXPECT_THAT(Messages(result), ElementsAre("Copying 2 files...", "Copying src/a.txt to to/a.txt...",
                                            "Copying src/sub/b.txt to to/sub/b.txt..."));
  StringList percentages;
  for (const auto& event : result.Of("progress")) percentages.push_back(event.at("percent").dump());
  EXPECT_THAT(percentages, ElementsAre("0", "33", "33", "100"));
  EXPECT_EQ(folder.Read("to/sub/b.txt"), "22");
  EXPECT_THAT(folder.Names("to"), ElementsAre("a.txt", "sub"));
}

TEST_F(FilesAndLoops, LoopsNestAndTellWhatTheyDo) {
  folder.Write("src/a.txt");
  folder.Write("src/b.txt");
  const std::string inner =
      ActionOf("HFILEITERATOR",
               "<VariableName>G</VariableName><FileSpec>%PROJECTDIR%\\src\\*.txt</FileSpec>"
               "<IncludeFilePath>False</IncludeFilePath>",
               Log("Vek.GetVariable('F').slice(-5) + ' ' + Vek.GetVariable('G')"));
  const auto result = RunActions(ActionOf("HFILEITERATOR",
                                          "<LoopVariable>F</LoopVariable><UseFileSet>True</UseFileSet>"
                                          "<FileSetName>TEXTS</FileSetName>",
                                          inner));
  EXPECT_EQ(result.exitCode, 0) << result.out;
  EXPECT_THAT(Messages(result),
              ElementsAre("Retrieving fileset...", "Refreshing fileset...", "File Set contents (2 files) :",
                          "src/a.txt\r\nsrc/b.txt", "Searching for Files...", "Found 2 Files.",
                          "a.txt\r\nb.txt", "a.txt a.txt", "a.txt b.txt", "Searching for Files...",
                          "Found 2 Files.", "a.txt\r\nb.txt", "b.txt a.txt", "b.txt b.txt"));
  EXPECT_EQ(result.events.back().at("actions"), 1 + 2 + 4);
  EXPECT_EQ(result.Of("action-start")[0].at("title"), "File Iterator [ TEXTS ]");
}

TEST_F(FilesAndLoops, AScriptRestartsALoop) {
  folder.Write("src/a.txt");
  folder.Write("src/b.txt");
  const auto result = RunActions(
      ActionOf("HFILEITERATOR",
               "<Name>Loop</Name><VariableName>F</VariableName>"
               "<FileSpec>%PROJECTDIR%\\src\\*.txt</FileSpec><IncludeFilePath>False</IncludeFilePath>",
               "<Action Type=\"SCRIPTACTION\"><Script Event=\"OnExecute\">"
               "var loop = Vek.ActionByName('loop'), F = Vek.GetVariable('F'); Vek.Log('pass ' + "
               "loop.FileIndex + ' ' + F);"
               "if (F == 'b.txt' &amp;&amp; !Vek.IsVariableDefined('AGAIN')) {"
               "  Vek.SetVariable('AGAIN', true); loop.Reset(); }</Script></Action>"));
  EXPECT_EQ(result.exitCode, 0) << result.out;
  StringList passes = Messages(result);
  std::erase_if(passes, [](const std::string& line) { return !line.starts_with("pass"); });
  EXPECT_THAT(passes, ElementsAre("pass 0 a.txt", "pass 1 b.txt", "pass 0 a.txt", "pass 1 b.txt"));
}

TEST_F(FilesAndLoops, FailuresEndLoopAndBuild) {
  folder.Write("src/a.txt");
  folder.Write("src/b.txt");
  const std::string loop = "<FileSpec>%PROJECTDIR%\\src\\*.txt</FileSpec><VariableName>F</VariableName>";
  const auto failed = RunActions(
      ActionOf("HFILEITERATOR", loop, ActionOf("HDELETE_FILE", "<FileSpec>%F%.not</FileSpec>")) + Log("1"));
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_EQ(failed.Of("action-start").size(), 2u);

  const auto missing = RunActions(ActionOf("FILESETCOPY",
                                           "<FileSetName>None</FileSetName>"
                                           "<DestinationFolder>x</DestinationFolder>"));
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_EQ(missing.Of("error").at(0).at("text"), "File set \"None\" not found.");
}

}  // namespace
