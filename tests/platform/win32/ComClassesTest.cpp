#include "gtest/gtest.h"

#include "platform/ComClasses.h"
#include "platform/CreatePlatform.h"

namespace {

TEST(Win32ComClasses, TheSystemsOwnClassesAreThere) {
  const auto owner = CreatePlatform([](char) { return std::nullopt; });
  ComClasses& classes = *owner->Get().comClasses;
  const auto id = classes.ClassIdOf("Scripting.FileSystemObject");
  ASSERT_TRUE(id);
  EXPECT_TRUE(classes.CanCreate(*id)) << *id;
  EXPECT_FALSE(classes.ClassIdOf("No.Such.Class"));
  EXPECT_FALSE(classes.CanCreate("{00000000-0000-0000-0000-000000000001}"));
}

}  // namespace
