#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

/// Names of one folder, kept together in one block and sorted by the upper-cased form in which they are
/// shown.
class FolderListing {
 public:
  /// `type` is the system's word for what the entry is (DT_REG, ...), DT_UNKNOWN when it has none.
  void Add(std::string_view name, unsigned char type) { Add(name, name, type); }
  void Add(std::string_view name, std::string_view shown, unsigned char type);
  void Sort();

  size_t Size() const { return entries_.size(); }

  /// Ends in a zero byte, as the system wants names.
  const char* Name(size_t index) const { return names_.data() + entries_[index].start; }
  std::string_view Shown(size_t index) const { return Text(entries_[index]); }
  unsigned char Type(size_t index) const { return entries_[index].type; }

 private:
  struct Entry {
    uint64_t key;  // what the first characters in which names differ are ordered by
    size_t start;
    uint16_t length;  // of the shown name
    bool isApart;     // which stands behind the other one
    unsigned char type;
  };

  std::string_view Text(const Entry& entry) const {
    const char* name = names_.data() + entry.start;
    return {entry.isApart ? name + std::strlen(name) + 1 : name, entry.length};
  }
  size_t CommonPrefix() const;
  bool IsBefore(const Entry& a, const Entry& b) const;

  std::string names_;
  std::vector<Entry> entries_;
};
