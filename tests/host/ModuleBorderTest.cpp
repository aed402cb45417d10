#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekerrors.h"
#include "host/catalogue/Packages.h"
#include "platform/Modules.h"
#include "support/ActionFixture.h"

namespace {

/// Errors, run-time types and strings have to mean the same on both sides of a module's border.
struct ModuleBorder : ActionFixture, testing::Test {
  template <class Function>
  Function* Find(const char* name) {
    return reinterpret_cast<Function*>(module->Function(name));
  }
  std::unique_ptr<TCustomVekAction> MakeAction() {
    return std::unique_ptr<TCustomVekAction>(
        Find<TCustomVekAction*(IVekActionHost&)>("MakeBorderAction")(Context()));
  }

  const std::string file = VEK_BIN_DIR "/" + GetPlatform().modules->FileName("ThrowingModule");
  std::string error;
  std::unique_ptr<LoadedModule> module = GetPlatform().modules->Load(file, error);
};

TEST_F(ModuleBorder, ErrorsAreCaughtByTheirTypes) {
  const auto registerTypes = Find<bool(bool)>("VekRegister");
  try {
    registerTypes(false);
    FAIL() << "nothing was thrown";
  } catch (const std::exception& caught) {
    EXPECT_EQ(typeid(caught), typeid(EVekExpressionError));
    EXPECT_NE(dynamic_cast<const EVekError*>(&caught), nullptr);
    EXPECT_STREQ(caught.what(), "thrown in the module");
  }
  EXPECT_THROW(registerTypes(true), std::out_of_range);
}

TEST_F(ModuleBorder, APackageThatRaisesIsNamedByTheHost) {
  Packages packages(GetPlatform());
  try {
    packages.Load(file, false);
    FAIL() << "nothing was thrown";
  } catch (const EVekError& caught) {
    EXPECT_EQ(caught.what(), "package " + file + ": thrown in the module");
  }
}

TEST_F(ModuleBorder, AnErrorOfTheHostComesBackAsItself) {
  const auto rethrow = Find<void(const std::exception_ptr&)>("Rethrow");
  EXPECT_THROW(rethrow(std::make_exception_ptr(EVekError("mine"))), EVekError);
  EXPECT_THROW(rethrow(std::make_exception_ptr(std::string("text"))), std::string);
}

TEST_F(ModuleBorder, ClassesAreTheSameOnBothSides) {
  const auto action = MakeAction();
  EXPECT_NE(dynamic_cast<TVekAction*>(action.get()), nullptr);
  EXPECT_EQ(action->ClassType().inherited, &TVekAction::kClass);
  EXPECT_TRUE(action->ClassType().InheritsFrom(TCustomVekAction::kClass));
}

TEST_F(ModuleBorder, WhatLeavesExecuteIsReported) {
  EXPECT_FALSE(ActionFixture::Run(*MakeAction()));
  EXPECT_THAT(Errors(),
              testing::ElementsAre(testing::HasSubstr("An action of the module cannot be expanded")));
}

TEST_F(ModuleBorder, TextGrownInTheModuleIsFreedHere) {
  std::string text = "short";
  Find<void(std::string&)>("AppendText")(text);
  EXPECT_EQ(text, "short" + std::string(1000, 'x'));
}

}  // namespace
