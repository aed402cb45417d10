#include <fstream>
#include <sstream>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/OsFixture.h"
#include "support/Vekrun.h"

namespace {

struct Example {
  std::string steps;
  std::string log;  // what the page shows of it; empty: it succeeds
};

/// The blocks of the page: steps in XML, each with the block of text that follows, where one does.
std::vector<Example> ExamplesOf(const std::string& page) {
  std::ifstream file(page);
  std::vector<Example> examples;
  std::string line, *block = nullptr;
  while (std::getline(file, line)) {
    if (line == "```xml") {
      block = &examples.emplace_back().steps;
    } else if (line == "```text") {
      block = &examples.back().log;
    } else if (line.starts_with("```")) {
      block = nullptr;
    } else if (block) {
      *block += line + '\n';
    }
  }
  return examples;
}

TEST(ShellPage, ShowsWhatHappens) {
  const TempFolder folder;
  folder.Write("my project/notes.txt", "A line.\n");
  folder.Write("bin/git", "#!/bin/sh\necho v1.4.2\n");
  SetMode(folder.Path("bin/git"), 0755);
  const std::string project = folder.Path("my project/nightly.vekproj");
  const ProgramSetup setup{.folder = folder.Path("my project"),
                           .environment = {"LC_ALL=C", "PATH=" + folder.Path("bin") + ":/usr/bin:/bin"}};
  const auto examples = ExamplesOf(VEK_SOURCE_DIR "/docs/shell.md");
  EXPECT_GE(examples.size(), 16u);
  for (const Example& example : examples) {
    folder.Write("my project/nightly.vekproj",
                 "<VekProject Version=\"1\">\n<Actions>\n" + example.steps + "</Actions></VekProject>\n");
    const auto result = RunVekrun({"run", project}, setup);
    EXPECT_EQ(result.exitCode == 0, example.log.empty()) << example.steps << result.out << result.err;
    EXPECT_THAT(ReplaceAll(result.out + result.err, folder.Path(), "/home/ada"),
                testing::HasSubstr(example.log));
  }
}

}  // namespace
