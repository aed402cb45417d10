#include "platform/posix/paths/NameTable.h"

#include <functional>

#include "base/Text.h"
#include "platform/posix/paths/ShownNames.h"

void NameTable::Add(std::string_view diskName) {
  if ((used_ + 1) * 2 > slots_.size()) Grow();
  size_t slot = FirstSlot(IsShownAsItStands(diskName) ? diskName : ShownName(diskName));
  while (slots_[slot] != kFree) slot = Next(slot);
  slots_[slot] = static_cast<uint32_t>(names_.size()) + kFirst;
  names_.append(diskName).push_back('\0');
  ++used_;
}

void NameTable::Remove(std::string_view diskName) {
  if (slots_.empty()) return;
  size_t slot = FirstSlot(IsShownAsItStands(diskName) ? diskName : ShownName(diskName));
  for (; slots_[slot] != kFree; slot = Next(slot)) {
    if (slots_[slot] == kRemoved || NameAt(slots_[slot]) != diskName) continue;
    slots_[slot] = kRemoved;
    return;
  }
}

bool NameTable::IsShownAs(std::string_view diskName, std::string_view name) {
  return IsShownAsItStands(diskName) ? SameText(diskName, name) : SameText(ShownName(diskName), name);
}

size_t NameTable::FirstSlot(std::string_view name) const {
  return std::hash<std::string>()(UpCase(name)) & (slots_.size() - 1);
}

/// Makes room, and leaves out what was removed.
void NameTable::Grow() {
  constexpr size_t kLeast = 64;
  NameTable larger;
  larger.slots_.resize(slots_.empty() ? kLeast : slots_.size() * 2);
  larger.names_.reserve(names_.size());
  for (const uint32_t entry : slots_) {
    if (entry >= kFirst) larger.Add(NameAt(entry));
  }
  *this = std::move(larger);
}
