#include "gmock/gmock.h"

#include "iterators/VekListIteratorActoin.h"
#include "support/LoopFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ListIteratorTest : LoopFixture, testing::Test {
  ListIteratorTest() { iterator.SetLoopVariable("I"); }

  TVekListIterator& iterator = AddLoop<TVekListIterator>("%I%");
};

TEST_F(ListIteratorTest, EveryLineOfAnItemIsAPassAndAnEmptyItemNone) {
  Context().SetVariable("LINES", "one\r\n two\n\nthree\r");
  Context().SetVariable("NOTHING", "");
  iterator.ListOfItems = {"first", "", "%NOTHING%", "%LINES%", "first"};
  StringList indexes;
  whenPassed = [&] {
    indexes.push_back(std::to_string(iterator.ItemIndex()) + " of " + std::to_string(iterator.ItemCount()));
    return true;
  };
  EXPECT_THAT(Iterate(), ElementsAre("first", "one", " two", "", "three", "first"));
  EXPECT_THAT(indexes, ElementsAre("1 of 6", "2 of 6", "3 of 6", "4 of 6", "5 of 6", "6 of 6"));
  EXPECT_THAT(Lines(), ElementsAre("Setting items...", "Found 6 Items"));
  iterator.ListOfItems = {};
  EXPECT_THAT(Iterate(), IsEmpty());
  EXPECT_THAT(Lines(), ElementsAre("Setting items...", "Found 0 Items"));
}

TEST_F(ListIteratorTest, AnItemThatCannotBeExpandedFailsTheLoop) {
  iterator.ListOfItems = {"first", "%NOWHERE%"};
  EXPECT_THAT(Iterate(), IsEmpty());
  ASSERT_EQ(Errors().size(), 2u);
  EXPECT_TRUE(Errors()[0].starts_with("Item: 1: ")) << Errors()[0];
  EXPECT_EQ(Errors()[1], "Error while searching for items : Failed to expand list of items.");
}

}  // namespace
