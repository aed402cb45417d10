#include "platform/PlatformTest.h"

namespace {

using namespace FileAttribute;  // NOLINT(google-build-using-namespace): attributes read as sums of bits

class PosixAttributesTest : public PlatformTest {
 protected:
  void SetUp() override {
    if (!StoresAttributes(folder.Path())) GTEST_SKIP() << "this file system stores no attributes";
  }
};

TEST_F(PosixAttributesTest, ReadOnlyIsTheLackOfEveryWriteBit) {
  folder.Write("file");
  const struct {
    uint32_t before, attributes, after;
  } cases[] = {
      {0664, ReadOnly, 0444}, {0755, ReadOnly, 0555}, {0555, Normal, 0755},
      {0464, Normal, 0464},   {0600, 0, 0600},
  };
  for (const auto& c : cases) {
    SetMode(Path("file"), c.before);
    ASSERT_TRUE(entries.SetAttributes(Path("file"), c.attributes));
    EXPECT_EQ(ModeOf(Path("file")), c.after);
  }
}

TEST_F(PosixAttributesTest, StoredAsText) {
  folder.Write("file");
  EXPECT_EQ(RawAttributes(Path("file")), std::nullopt);
  ASSERT_TRUE(entries.SetAttributes(Path("file"), Hidden | Archive | ReadOnly));
  EXPECT_EQ(RawAttributes(Path("file")), "0x22");
  ASSERT_TRUE(entries.SetAttributes(Path("file"), System));
  EXPECT_EQ(RawAttributes(Path("file")), "0x4");
}

TEST_F(PosixAttributesTest, ALeadingDotHidesUntilAnAttributeSaysOtherwise) {
  folder.Write(".dot");
  EXPECT_EQ(AttributesOf(".dot"), Hidden);
  ASSERT_TRUE(entries.SetAttributes(Path(".dot"), Hidden));
  EXPECT_EQ(RawAttributes(Path(".dot")), std::nullopt);
  ASSERT_TRUE(entries.SetAttributes(Path(".dot"), Normal));
  EXPECT_EQ(AttributesOf(".dot"), Normal);
  EXPECT_EQ(RawAttributes(Path(".dot")), "0x0");
}

/// The binary form: empty text, version, version again, valid fields, attribute word, and what follows.
std::string Binary(char version, char valid, char word) {
  return std::string({0, 0, version, 0, version, 0, 0, 0, valid, 0, 0, 0, word, 0, 0, 0}) + "further fields";
}

TEST_F(PosixAttributesTest, ReadsWhatFileServersStore) {
  folder.Write("file");
  const std::pair<std::string, uint32_t> cases[] = {
      {"0x2", Hidden},
      {"0x26", Hidden | System | Archive},
      {std::string("0x4\0", 4), System},
      {"0x1", Normal},  // read-only is the mode's affair
      {Binary(3, 0x11, 0x02), Hidden},
      {Binary(4, 0x11, 0x24), System | Archive},
      {Binary(5, 0x01, 0x20), Archive},
      {Binary(5, 0x10, 0x20), Normal},  // the word is not valid
      {Binary(9, 0x11, 0x02), Normal},
      {std::string("\0\0\x03", 3), Normal},
      {"nonsense", Normal},
  };
  for (const auto& [value, wanted] : cases) {
    ASSERT_TRUE(StoreRawAttributes(Path("file"), value));
    EXPECT_EQ(AttributesOf("file"), wanted) << testing::PrintToString(value);
  }
}

TEST_F(PosixAttributesTest, ABinaryFormIsPatchedNotReplaced) {
  folder.Write("file");
  ASSERT_TRUE(StoreRawAttributes(Path("file"), Binary(4, 0x10, 0x51)));
  ASSERT_TRUE(entries.SetAttributes(Path("file"), Hidden | System));
  EXPECT_EQ(RawAttributes(Path("file")), Binary(4, 0x11, 0x06));
  ASSERT_TRUE(entries.SetAttributes(Path("file"), Normal));
  EXPECT_EQ(RawAttributes(Path("file")), Binary(4, 0x11, 0x00));
}

TEST_F(PosixAttributesTest, SettingWhatCannotBeStoredFailsAndClearingDoesNot) {
  uint32_t attributes = 0;
  const char* kNoStore = "/proc/self/limits";
  if (!entries.GetAttributes(kNoStore, attributes)) GTEST_SKIP() << "no such file system here";
  const SysResult result = entries.SetAttributes(kNoStore, attributes | Hidden);
  EXPECT_FALSE(result.ok);
  EXPECT_NE(result.code, Win32Error::Success);
  EXPECT_TRUE(entries.SetAttributes(kNoStore, attributes));
}

}  // namespace
