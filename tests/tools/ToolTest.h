#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/CreatePlatform.h"
#include "support/DiskTable.h"
#include "support/OsFixture.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

/// A copy tool as it was built, between the folders "a" and "b".
struct ToolTest : testing::Test {
  TempFolder folder;
  std::unique_ptr<PlatformOwner> owner = CreatePlatform({});
  const Platform& platform = owner->Get();
  DiskTable disk{folder, platform};
  ProgramSetup setup{.folder = folder.Path()};

  ProgramResult Run(const std::string& tool, const StringList& arguments) const {
    return RunProgram(VEK_BIN_DIR "/tools/" + tool + ".exe", arguments, setup);
  }

  /// Robocopy from "a" to "b" with the switches of a text, separated by blanks; tries once.
  ProgramResult Robocopy(const std::string& switches) const {
    StringList arguments = {"a", "b", "/R:0", "/NJH", "/NJS", "/NS"};
    for (const std::string& one : SplitAt(switches, " ")) arguments.push_back(one);
    return Run("robocopy", arguments);
  }

  void SetTime(const std::string& name, std::string_view local) const {
    const auto set = [&](TDateTime) { return *ParseIso8601(local); };
    EXPECT_TRUE(platform.entries->ChangeLastWrite(folder.Path(name), set)) << name;
  }

  void SetAttributes(const std::string& name, uint32_t attributes) const {
    EXPECT_TRUE(platform.entries->SetAttributes(folder.Path(name), attributes)) << name;
  }
};

/// The lines of an output with single blanks between their words, without empty ones.
inline StringList Squeezed(const std::string& output) {
  StringList lines;
  for (const std::string& line : SplitLines(output)) {
    std::string text;
    for (const char c : line) {
      const bool isBlank = c == ' ' || c == '\t';
      if (!isBlank)
        text += c;
      else if (!text.empty() && text.back() != ' ')
        text += ' ';
    }
    if (!Trim(text).empty()) lines.emplace_back(Trim(text));
  }
  return lines;
}
