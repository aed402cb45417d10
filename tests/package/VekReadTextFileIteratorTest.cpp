#include "gmock/gmock.h"

#include "iterators/VekReadTextFileIteratorAction.h"
#include "support/OsFixture.h"
#include "support/ProjectFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ReadTextFileIterator : ProjectFixture, testing::Test {
  ReadTextFileIterator() : iterator(Add<TReadTextFileIterator>(project.actions)) {
    iterator.SetLoopVariable("L");
    iterator.TextFileName = WideString(folder.Path("text.txt"));
    Add(Below(0), [this](TProbe&) {
      passes.push_back(std::to_string(iterator.LineIndex()) + '/' + std::to_string(iterator.LineCount()) +
                       ' ' + VariantToText(Context().GetVariableValue("L")));
      if (passes.size() == resetAfter) iterator.Reset();
      return true;
    });
  }

  TReadTextFileIterator& iterator;
  StringList passes;
  size_t resetAfter = 0;
};

TEST_F(ReadTextFileIterator, RunsOncePerLine) {
  folder.Write("text.txt", "one\r\n\r\n\xFF\r%L%\n");
  RunAll();
  EXPECT_THAT(passes, ElementsAre("1/4 one", "2/4 ", "3/4 \xFF", "4/4 %L%"));
  EXPECT_THAT(Lines(), ElementsAre("Reading file...", "File contains 4 lines"));
}

TEST_F(ReadTextFileIterator, AResetReadsTheFileAgain) {
  folder.Write("text.txt", "one\ntwo");
  resetAfter = 1;
  RunAll();
  EXPECT_THAT(passes, ElementsAre("1/2 one", "1/2 one", "2/2 two"));
}

TEST_F(ReadTextFileIterator, AMissingOrEmptyFileHasNoPasses) {
  RunAll();
  EXPECT_THAT(Lines(), ElementsAre("Reading file...", "File doesn't exist"));
  folder.Write("text.txt", "");
  RunAll();
  EXPECT_THAT(Lines(), ElementsAre("Reading file...", "File contains 0 lines"));
  EXPECT_THAT(Errors(), IsEmpty());
  EXPECT_THAT(passes, IsEmpty());
}

TEST_F(ReadTextFileIterator, AFileThatCannotBeReadEndsTheLoop) {
  folder.Write("text.txt", "held");
  const ExclusiveOpen held(folder.Path("text.txt"));
  RunAll();
  EXPECT_THAT(Errors(),
              ElementsAre("Error while reading file : " + SystemText(Win32Error::SharingViolation)));
}

}  // namespace
