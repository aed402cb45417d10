#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/IniFiles.h"
#include "platform/TextEncoding.h"

/// An INI file in memory: its text and what stands where in it, so that a change touches one line. What it
/// answers and does is described at IniFiles.
class IniText {
 public:
  IniText() : IniText(std::string()) {}
  explicit IniText(std::string contents);

  /// The bytes of the file.
  const std::string& Contents() const { return encoding_ == TextEncoding::Plain ? text_ : encoded_; }

  std::optional<std::string> Find(std::string_view section, std::string_view key) const;
  StringList Sections() const;
  std::vector<IniEntry> Entries(std::string_view section) const;

  void Set(std::string_view section, std::string_view key, std::string_view value);

  /// False when nothing changes.
  bool SetEntries(std::string_view section, std::span<const IniEntry> entries, OtherLines others);

  /// False when there is nothing to remove.
  bool Remove(std::string_view section, std::string_view key);
  bool RemoveSection(std::string_view section);

 private:
  /// A line that is not blank. All but `begin` counts from there, so that what goes before may grow.
  struct Line {
    size_t begin;
    size_t name, nameEnd;
    size_t value;  // 0: there is no "="
    size_t end;    // without the blanks at its end
    size_t size;   // with its line break
  };
  struct Section {
    std::string name;
    std::string keyPrefix;      // of its lines in the index; empty when an earlier section has the name
    std::vector<size_t> lines;  // the header first
  };

  std::string_view Name(const Line& line) const;
  std::string_view Value(const Line& line) const;
  /// What the file makes of a text: UTF-16 has no units for bytes that are not UTF-8.
  std::string AsStored(std::string_view text) const;
  const Section* FindSection(std::string_view name) const;
  const Line* FindLine(std::string_view section, std::string_view key) const;

  void Parse(size_t from);
  void ParseLine(size_t begin, size_t contentEnd, size_t next);
  void AddLine(const Line& line);
  void Reparse();

  void SetText(std::string_view section, std::string_view key, std::string_view value);
  void SetValue(size_t line, std::string_view value);
  void AddKey(size_t section, std::string_view key, std::string_view value);
  void AddSection(std::string_view section, std::string_view key, std::string_view value);
  void Replace(size_t position, size_t size, std::string_view by);
  void Encode();

  std::string text_;  // UTF-8, with its mark if it has one
  std::string encoded_;
  std::string oddByte_;  // at the end of UTF-16
  TextEncoding encoding_ = TextEncoding::Plain;
  std::string lineBreak_;
  std::vector<Line> lines_;
  std::vector<Section> sections_;                         // in the order of the file
  std::unordered_map<std::string, size_t> sectionIndex_;  // by upper-cased name
  std::unordered_map<std::string, size_t> lineIndex_;  // by upper-cased section, line break, upper-cased key
};

/// What a value in a file stands for: without blanks and one pair of quotes around it.
std::string_view IniValue(std::string_view text);
