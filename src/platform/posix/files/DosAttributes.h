#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Hidden, system and archive are kept in the extended attribute user.DOSATTRIB, where file servers that
/// serve Windows clients keep them: as text ("0x22") or in a binary form of versions 3 to 5.
inline constexpr const char* kDosAttribute = "user.DOSATTRIB";

/// The attribute word of a stored value; nothing when the value holds none.
std::optional<uint32_t> ParseDosAttribute(std::string_view value);

/// The value with hidden, system and archive as given, in the form that `value` had; text when it had none.
std::string WithDosAttributes(std::string_view value, uint32_t attributes);

/// What a name alone says: a leading dot hides.
uint32_t ImpliedAttributes(std::string_view name);

/// Hidden, system and archive of an entry in an open folder, links followed. A leading dot counts as hidden
/// until a stored value says otherwise.
uint32_t StoredAttributes(int folder, const char* name);

/// Stores the three bits of `attributes`; false with the reason in errno. Nothing is written where nothing
/// changes.
bool StoreAttributes(int folder, const char* name, uint32_t attributes);

/// The same for an open file that is called `name`, or will be.
uint32_t OpenAttributes(int fd, std::string_view name);
bool StoreOpenAttributes(int fd, std::string_view name, uint32_t attributes);
