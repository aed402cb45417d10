#pragma once

#include <memory>
#include <string>

#include "gtest/gtest.h"

#include "platform/Console.h"
#include "platform/Contents.h"
#include "platform/CreatePlatform.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/ErrorTexts.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "platform/Folders.h"
#include "platform/Modules.h"
#include "support/OsFixture.h"
#include "support/TempFolder.h"
#include "support/WineLimits.h"

/// The machine's platform and a folder to try it on; the drive Q: is that folder where drives are mapped.
class PlatformTest : public testing::Test {
 protected:
  std::string Path(std::string_view name) const { return folder.Path(name); }

  uint32_t AttributesOf(std::string_view name) {
    uint32_t attributes = 0;
    EXPECT_TRUE(entries.GetAttributes(Path(name), attributes)) << name;
    if (!WineLimits::FixedAttributes() || (attributes &= ~FileAttribute::Archive) != 0) return attributes;
    return FileAttribute::Normal;
  }

  TempFolder folder;
  std::unique_ptr<PlatformOwner> owner = CreatePlatform(
      [this](char letter) { return letter == 'Q' ? std::optional(folder.Path()) : std::nullopt; },
      [this] { return Path("registry.reg"); });
  Entries& entries = *owner->Get().entries;
  Folders& folders = *owner->Get().folders;
  Contents& data = *owner->Get().contents;
  Finder& finder = *owner->Get().finder;
  Environment& environment = *owner->Get().environment;
};
