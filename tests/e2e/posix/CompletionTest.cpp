#include "gtest/gtest.h"

#include "support/Vekrun.h"

namespace {

struct CompletionCase {
  std::string words;  // as bash splits them, the one to complete last
  std::string replies;
};

TEST(Completion, BashKnowsCommandsOptionsTypesPropertiesAndFiles) {
  const TempFolder folder;
  folder.Write("_vekrun", RunVekrun({"completion", "bash"}).out);
  folder.Write("night ly.vekproj", "");
  folder.Write("notes.txt", "");
  const CompletionCase cases[] = {
      {"de", "describe"},
      {"n", "night ly.vekproj"},
      {"run n", "night ly.vekproj"},
      {"night.vekproj --no-pr", "--no-preserve-root"},
      {"run --log n", "night ly.vekproj|notes.txt"},
      {"run --log = no", "notes.txt"},
      {"run -D A = 1 --log-format j", "jsonl|junit"},
      {"describe HDEL", "HDELETE_DIR|HDELETE_FILE"},
      {"exec -v HDELETE_FILE Fa", "FailIfNoFile="},
      {"exec LISTITERATOR List", "ListOfItems+="},
      {"exec WRITETOTEXTFILE NewContent = a WriteToPosition =", "toStart|toEnd"},
      {"exec HDELETE_FILE DeleteHidden = T", "True"},
      {"exec HDELETE_FILE FileSpec = no", "notes.txt"},
      {"completion f", "fish"},
  };
  for (const CompletionCase& wanted : cases) {
    const auto bash = RunProgram("/bin/bash",
                                 {"-c",
                                  "source ./_vekrun; COMP_WORDS=(vekrun $1); "
                                  "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _vekrun; "
                                  "IFS='|'; printf %s \"${COMPREPLY[*]}\"",
                                  "bash", wanted.words},
                                 {.folder = folder.Path()});
    EXPECT_EQ(bash.out, wanted.replies) << wanted.words << bash.err;
  }
}

}  // namespace
