#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "host/catalogue/Catalogue.h"
#include "host/engine/ActionGroup.h"
#include "support/SampleAction.h"

namespace {

using testing::ElementsAre;
using testing::Pair;

const PageClass* Page(const int& identity) { return reinterpret_cast<const PageClass*>(&identity); }

TEST(CatalogueTest, FindsTypesWithoutRegardToCaseAndKeepsTheirOrder) {
  Catalogue catalogue;
  catalogue.RegisterAction("Second", "C", TSampleAction::Class(), "ZZZ");
  catalogue.RegisterAction("First", "C", TVekActionGroup::Class(), "AAA");
  EXPECT_THAT(catalogue.TypeIds(), ElementsAre("ZZZ", "AAA"));
  ASSERT_NE(catalogue.Find("aaa"), nullptr);
  EXPECT_EQ(catalogue.Find("aaa")->displayName, "First");
  EXPECT_EQ(catalogue.Find("AA"), nullptr);
}

TEST(CatalogueTest, RefusesATypeIdTwice) {
  Catalogue catalogue;
  catalogue.RegisterAction("One", "C", TSampleAction::Class(), "SAMPLE");
  try {
    catalogue.RegisterAction("Two", "C", TVekActionGroup::Class(), "Sample");
    ADD_FAILURE() << "registered twice";
  } catch (const EVekError& error) {
    EXPECT_STREQ(error.what(), "action type \"Sample\" is already registered");
  }
}

TEST(CatalogueTest, KeepsPagesInOrderAndOnlyForRegisteredTypes) {
  constexpr int kPages[2] = {};
  const PageClass* pages[] = {Page(kPages[1]), Page(kPages[0])};
  Catalogue catalogue;
  EXPECT_THROW(catalogue.RegisterPropertyPages(TSampleAction::Class(), pages), EVekError);
  catalogue.RegisterAction("One", "C", TSampleAction::Class(), "SAMPLE");
  catalogue.RegisterPropertyPages(TSampleAction::Class(), pages);
  EXPECT_THAT(catalogue.Find("SAMPLE")->pages, ElementsAre(pages[0], pages[1]));
}

TEST(CatalogueTest, AnEnumerationGivesScriptsAConstantForEachValue) {
  Catalogue catalogue;
  catalogue.RegisterScriptConstant("smFirst", int64_t{9});
  catalogue.RegisterScriptEnumType({"TSampleMode", kEnumNames<TSampleMode>.values});
  EXPECT_THAT(catalogue.ScriptConstants(),
              ElementsAre(Pair("smFirst", Variant(int64_t{9})), Pair("smFirst", Variant(int64_t{0})),
                          Pair("smSecond", Variant(int64_t{1})), Pair("smThird", Variant(int64_t{2}))));
}

TEST(CatalogueTest, TheNearestClassAnswersAScriptMethod) {
  const ScriptMethodHandler base = [](TCustomVekAction&, std::span<const Variant>) -> Variant {
    return false;
  };
  const ScriptMethodHandler derived = [](TCustomVekAction&, std::span<const Variant>) -> Variant {
    return true;
  };
  Catalogue catalogue;
  catalogue.RegisterScriptMethod(TSampleAction::Class(), "Reset", "", derived);
  catalogue.RegisterScriptMethod(TVekAction::kClass, "Reset", "", base);
  EXPECT_EQ(catalogue.FindScriptMethod(TSampleAction::Class(), "Reset"), derived);
  EXPECT_EQ(catalogue.FindScriptMethod(TVekActionGroup::Class(), "Reset"), base);
  EXPECT_EQ(catalogue.FindScriptMethod(TSampleAction::Class(), "Reboot"), nullptr);
}

}  // namespace
