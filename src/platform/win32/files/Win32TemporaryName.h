#pragma once

#include <string>
#include <string_view>

/// What a file is called before it takes another's place. No search finds such names. They tell the process
/// that made them, so that what a killed one left can be told from what is being written.

/// A name that this process has not given yet.
std::wstring TemporaryName();

bool IsTemporaryName(std::wstring_view name);

/// Removes what killed programs left in a folder (with its delimiter), the first time that this process asks.
void SweepOnce(const std::wstring& folder);
