#pragma once

#include <string>
#include <string_view>

/// What a file is called before it takes another's place. No search finds such names. Whoever makes one holds
/// a shared lock on it as long as it has that name.

/// A name that no other entry has; empty with the reason in errno.
std::string TemporaryName();

bool IsTemporaryName(std::string_view name);

/// Removes one that a killed program left; one that is held stays.
void RemoveAbandoned(int folder, const char* name);

/// The same for all that lie in a folder.
void RemoveAllAbandoned(int folder);
