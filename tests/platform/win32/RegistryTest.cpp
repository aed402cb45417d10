#include "platform/Entries.h"
#include "platform/RegistryFormat.h"
#include "platform/RegistryTesting.h"
#include "platform/RegistryText.h"
#include "support/RunProgram.h"

namespace {

/// What one of the two writes the other reads: the system's own editor, and the text form of other systems.
class RegistryExchangeTest : public RegistryTestBase {
 protected:
  void SetUp() override {
    const auto folderOfWindows = environment.Variable("SystemRoot");
    editor_ = folderOfWindows.value_or("") + "\\regedit.exe";
    if (!owner->Get().entries->FileExists(editor_)) GTEST_SKIP() << "no registry editor";
  }

  void RunEditor(const StringList& arguments) { EXPECT_EQ(RunProgram(editor_, arguments).exitCode, 0); }

  const std::pair<const char*, RegistryValue> values[4] = {
      {"", {RegistryType::String, "default"}},
      {"a \"b\" c\\", {RegistryType::String, "\xC3\xA4 \"q\" c:\\x"}},
      {"n", {RegistryType::DWord, "\x01\x02\x03\xFF"}},
      {"long", {RegistryType::Binary, std::string(200, '\xAB')}},
  };
  std::string WholeKey() const { return "HKEY_CURRENT_USER\\" + kTestKey; }

 private:
  std::string editor_;
};

TEST_F(RegistryExchangeTest, WhatTheEditorExportsIsRead) {
  const auto key = TestKey();
  for (const auto& [name, value] : values) EXPECT_TRUE(key->Write(name, value));
  RunEditor({"/E", folder.Path("out.reg"), WholeKey()});
  RegistryText text;
  EXPECT_FALSE(text.Load(folder.Read("out.reg")));
  for (const auto& [name, value] : values) {
    EXPECT_EQ(DecodeRegistryValue(text.Find(WholeKey(), name).value_or("")), value) << name;
  }
}

TEST_F(RegistryExchangeTest, TheEditorImportsWhatIsWritten) {
  RegistryText text;
  for (const auto& [name, value] : values) text.Set(WholeKey(), name, EncodeRegistryValue(value));
  folder.Write("in.reg", EncodeUtf16("\xEF\xBB\xBF" + text.Contents(), TextEncoding::Utf16Le));
  RunEditor({"/S", folder.Path("in.reg")});
  for (const auto& [name, value] : values) {
    RegistryValue found;
    EXPECT_TRUE(TestKey()->Read(name, found)) << name;
    EXPECT_EQ(found, value) << name;
  }
}

}  // namespace
