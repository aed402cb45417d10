#include "gtest/gtest.h"

#include "host/expressions/Variables.h"

TEST(Variables, NamesCompareWithoutRegardToCase) {
  Variables variables;
  variables.Set("Größe", int64_t{1});
  variables.Set("GRÖSSE", int64_t{2});
  ASSERT_NE(variables.Find("gRÖßE"), nullptr);
  EXPECT_EQ(*variables.Find("gRÖßE"), Variant(int64_t{1}));
  EXPECT_EQ(variables.Find("Groesse"), nullptr);
}

TEST(Variables, AssigningGivesTheValuesTypeAndKeepsTheFirstSpelling) {
  Variables variables;
  variables.Set("Out", std::string("text"));
  variables.Set("OUT", true);
  EXPECT_EQ(*variables.Find("out"), Variant(true));
  ASSERT_EQ(variables.All().size(), 1u);
  EXPECT_EQ(variables.All().begin()->first, "Out");
}
