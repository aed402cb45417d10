#include "gmock/gmock.h"

#include "platform/RegistryTesting.h"

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using enum RegistryOpen;

namespace {

using namespace std::string_literals;

class RegistryTest : public RegistryTestBase {};

TEST_F(RegistryTest, KeysAreThereOrMade) {
  TestKey("\\Sub");
  const struct {
    std::string path;
    uint32_t access;
    RegistryOpen mode;
    Win32Error code;
  } cases[] = {
      {"", RegistryAccess::Read, Existing, Win32Error::Success},
      {kTestKey, RegistryAccess::Read, Existing, Win32Error::Success},
      {"\\" + UpCase(kTestKey) + "\\sub\\", RegistryAccess::All, Existing, Win32Error::Success},
      {kTestKey + "\\None", RegistryAccess::Read, Existing, Win32Error::FileNotFound},
      {kTestKey + "\\None", RegistryAccess::All, Existing, Win32Error::FileNotFound},
      {kTestKey + "\\a/b\\c", RegistryAccess::All, CreateMissing, Win32Error::Success},
      {kTestKey + "\\a/b", RegistryAccess::All, Existing, Win32Error::Success},
      {"\xFF", RegistryAccess::Read, Existing, Win32Error::InvalidParameter},
  };
  for (const auto& wanted : cases) {
    std::unique_ptr<RegistryKey> key;
    EXPECT_EQ(Open(wanted.path, wanted.access, wanted.mode, key).code, wanted.code) << wanted.path;
    EXPECT_EQ(key != nullptr, wanted.code == Win32Error::Success) << wanted.path;
  }
  std::unique_ptr<RegistryKey> key;
  EXPECT_EQ(registry.Open(5, "", RegistryAccess::Read, Existing, key).code, Win32Error::InvalidHandle);
  StringList names;
  EXPECT_TRUE(TestKey()->SubKeys(names));
  EXPECT_THAT(names, ElementsAre("a/b", "Sub"));
}

TEST_F(RegistryTest, ValuesOfEveryKindComeBack) {
  const auto key = TestKey();
  const std::pair<const char*, RegistryValue> values[] = {
      {"", {RegistryType::String, "default"}},
      {"text", {RegistryType::String, " \"quoted\" c:\\x\r\n\xC3\xA4\xF0\x9F\x98\x80 ; "}},
      {"na\"me\\ =;", {RegistryType::String, ""}},
      {"expand", {RegistryType::ExpandString, "%PATH%;x"}},
      {"number", {RegistryType::DWord, "\x01\x02\x03\xFF"}},
      {"long", {RegistryType::QWord, "\x01\x02\x03\x04\x05\x06\x07\xFF"}},
      {"list", {RegistryType::MultiString, "a\0\0\0b\0\0\0\0\0"s}},
      {"bytes", {RegistryType::Binary, std::string(5000, '\xAB')}},
      {"none", {RegistryType::None, ""}},
  };
  std::vector<std::string> wanted;
  for (const auto& [name, value] : values) {
    EXPECT_TRUE(key->Write(name, {RegistryType::String, "before"})) << name;
    EXPECT_TRUE(key->Write(UpCase(name), value)) << name;
    wanted.emplace_back(name);
  }
  for (const auto& [name, value] : values) {
    RegistryValue found;
    EXPECT_TRUE(key->Read(name, found)) << name;
    EXPECT_EQ(found, value) << name;
  }
  StringList names;
  EXPECT_TRUE(key->Values(names));
  EXPECT_THAT(names, testing::UnorderedElementsAreArray(wanted));
}

TEST_F(RegistryTest, ValuesCanBeDeleted) {
  const auto key = TestKey();
  EXPECT_TRUE(key->Write("v", {RegistryType::String, "1"}));
  EXPECT_TRUE(key->Delete("V"));
  RegistryValue value;
  EXPECT_EQ(key->Read("v", value).code, Win32Error::FileNotFound);
  EXPECT_EQ(key->Delete("v").code, Win32Error::FileNotFound);
  EXPECT_EQ(key->Delete("").code, Win32Error::FileNotFound);
}

TEST_F(RegistryTest, WritesWhatIsAllowedAndIsText) {
  TestKey();
  const auto reader = TestKey("", RegistryAccess::Read);
  EXPECT_EQ(reader->Write("v", {RegistryType::String, "1"}).code, Win32Error::AccessDenied);
  const auto key = TestKey();
  EXPECT_EQ(key->Write("\xFF", {RegistryType::String, "1"}).code, Win32Error::InvalidParameter);
  EXPECT_EQ(key->Write("v", {RegistryType::String, "\xFF"}).code, Win32Error::InvalidParameter);
  EXPECT_TRUE(key->Write("v", {RegistryType::Binary, "\xFF"}));
  EXPECT_EQ(TextOf(*reader, "v"), "\xFF");
}

}  // namespace
