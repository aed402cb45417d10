#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The names of a folder, found by how they are shown and without regard to case. They stand together in one
/// block, so that a million of them take some 40 MB.
class NameTable {
 public:
  void Add(std::string_view diskName);
  void Remove(std::string_view diskName);

  /// Calls `take` with each name that is shown as `name` in other case at most.
  template <class Take>
  void ForEach(std::string_view name, Take take) const {
    if (slots_.empty()) return;
    for (size_t slot = FirstSlot(name); slots_[slot] != kFree; slot = Next(slot)) {
      if (slots_[slot] != kRemoved && IsShownAs(NameAt(slots_[slot]), name)) take(NameAt(slots_[slot]));
    }
  }

 private:
  static constexpr uint32_t kFree = 0, kRemoved = 1, kFirst = 2;

  std::string_view NameAt(uint32_t entry) const { return names_.data() + (entry - kFirst); }
  static bool IsShownAs(std::string_view diskName, std::string_view name);
  size_t FirstSlot(std::string_view name) const;
  size_t Next(size_t slot) const { return (slot + 1) & (slots_.size() - 1); }
  void Grow();

  std::string names_;            // each ends in a zero
  std::vector<uint32_t> slots_;  // a power of two of them; from kFirst on, where the name starts
  size_t used_ = 0;              // removed ones included
};
