#pragma once

#include <string>
#include <vector>

#include "platform/PlatformTest.h"

class FinderTest : public PlatformTest {
 protected:
  std::vector<FoundEntry> Entries(const std::string& spec, uint32_t mask, SysResult* result = nullptr) {
    SysResult opened;
    const auto search = finder.Open(spec, mask, opened);
    std::vector<FoundEntry> entries;
    for (FoundEntry entry; search->Next(entry);) entries.push_back(entry);
    EXPECT_EQ(opened.ok, !entries.empty()) << spec;
    if (result != nullptr) *result = opened;
    return entries;
  }

  std::vector<std::string> Find(const std::string& spec,
                                uint32_t mask = FileAttribute::ReadOnly | FileAttribute::Hidden) {
    std::vector<std::string> names;
    for (const FoundEntry& entry : Entries(spec, mask)) names.push_back(entry.name);
    return names;
  }

  Win32Error CodeOf(const std::string& spec) {
    SysResult result;
    Entries(spec, FileAttribute::ReadOnly, &result);
    return result.code;
  }
};
