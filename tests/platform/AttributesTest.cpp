#include "platform/PlatformTest.h"

namespace {

using namespace FileAttribute;  // NOLINT(google-build-using-namespace): attributes read as sums of bits

class AttributesTest : public PlatformTest {
 protected:
  void SetUp() override {
    if (!StoresAttributes(folder.Path())) GTEST_SKIP() << "this file system stores no attributes";
  }
};

TEST_F(AttributesTest, RoundTrip) {
  folder.Write("File");
  for (const uint32_t attributes :
       {ReadOnly, Hidden, System, Archive, Hidden | System | ReadOnly | Archive, Normal}) {
    if (WineLimits::FixedAttributes() && (attributes & Archive) != 0) continue;
    ASSERT_TRUE(entries.SetAttributes(Path("FILE"), attributes)) << attributes;
    EXPECT_EQ(AttributesOf("file"), attributes);
  }
  ASSERT_TRUE(entries.SetAttributes(Path("file"), 0));
  EXPECT_EQ(AttributesOf("file"), Normal);
  folder.MakeFolder("folder");
  ASSERT_TRUE(entries.SetAttributes(Path("folder"), Hidden | Directory));
  EXPECT_EQ(AttributesOf("folder"), Hidden | Directory);
}

TEST_F(PlatformTest, AttributesOfMissingFiles) {
  uint32_t attributes = 0;
  EXPECT_EQ(entries.GetAttributes(Path("x"), attributes).code, Win32Error::FileNotFound);
  EXPECT_EQ(entries.SetAttributes(Path("x"), Hidden).code, Win32Error::FileNotFound);
  EXPECT_EQ(entries.SetAttributes(Path("x/y"), Hidden).code, Win32Error::PathNotFound);
}

}  // namespace
