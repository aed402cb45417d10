#include "tools/Selection.h"

#include <algorithm>
#include <cmath>

#include "base/WindowsPath.h"
#include "platform/FileAttributes.h"

namespace {

constexpr double kHour = 3600;

// Finer than any file system counts, coarser than what a number of seconds since 1970 loses.
constexpr double kRounding = 1e-6;

bool IsLink(const FoundEntry& entry) { return (entry.attributes & FileAttribute::ReparsePoint) != 0; }
bool IsFolder(const FoundEntry& entry) { return (entry.attributes & FileAttribute::Directory) != 0; }

}  // namespace

SelectionRules::SelectionRules()
    : comparedAttributes(FileAttribute::ReadOnly | FileAttribute::Hidden | FileAttribute::System |
                         FileAttribute::Archive) {}

Selection::Selection(SelectionRules rules) : rules_(std::move(rules)) {
  for (const std::string& name : rules_.names) names_.emplace_back(name);
  if (std::ranges::any_of(names_, [](const DosMask& mask) { return mask.MatchesAll(); })) names_.clear();
  for (std::string& text : rules_.excludedTexts) text = UpCase(text);
  files_ = MasksOf(rules_.excludedFiles);
  folders_ = MasksOf(rules_.excludedFolders);
}

std::vector<Selection::Mask> Selection::MasksOf(const StringList& texts) {
  std::vector<Mask> masks;
  for (const std::string& text : texts) {
    const std::string_view path = text.size() > 1 ? WithoutTrailingDelimiter(text) : std::string_view(text);
    masks.push_back({DosMask(NamePart(path)), std::string(FolderPart(path))});
  }
  return masks;
}

bool Selection::Matches(const std::vector<Mask>& masks, std::string_view folder, std::string_view name) {
  return std::ranges::any_of(masks, [&](const Mask& m) {
    return m.mask.Matches(name) && (m.folder.empty() || SameText(m.folder, folder));
  });
}

bool Selection::HasExcludedText(std::string_view folder, std::string_view name) const {
  if (rules_.excludedTexts.empty()) return false;
  const std::string path = UpCase(std::string(folder).append(name));
  return std::ranges::any_of(rules_.excludedTexts,
                             [&](const std::string& text) { return path.find(text) != std::string::npos; });
}

bool Selection::IsNamed(std::string_view name) const {
  return names_.empty() ||
         std::ranges::any_of(names_, [&](const DosMask& mask) { return mask.Matches(name); });
}

bool Selection::AsksForAttributes() const {
  const bool selects = rules_.withAttributes || (rules_.withoutAttributes | rules_.requiredAttributes) != 0;
  return selects || Copies(FileClass::Same) || Copies(FileClass::Tweaked);
}

bool Selection::MeansEveryName() const {
  return names_.empty() && rules_.keptFiles.empty() && files_.empty() && folders_.empty() &&
         rules_.excludedTexts.empty();
}

bool Selection::IsExcludedFile(std::string_view folder, std::string_view name) const {
  return Matches(files_, folder, name) || HasExcludedText(folder, name);
}

bool Selection::IsExcludedFolder(std::string_view folder, std::string_view name) const {
  // A text such as "\obj\" names the folder, which a full path shows by the delimiter at its end.
  return Matches(folders_, folder, name) || HasExcludedText(folder, std::string(name) + folder.back());
}

bool Selection::IsKept(std::string_view folder, std::string_view name) const {
  const auto isIt = [&](const std::string& kept) { return kept == std::string(folder).append(name); };
  return !IsNamed(name) || IsExcludedFile(folder, name) || std::ranges::any_of(rules_.keptFiles, isIt);
}

bool Selection::LeavesFolder(const FoundEntry& folder) const {
  return (rules_.leavesFolderLinks && IsLink(folder)) ||
         (folder.attributes & rules_.foldersWithoutAttributes) != 0;
}

FileClass Selection::Classify(std::string_view folder, const FoundEntry& file,
                              const FoundEntry* counterpart) const {
  if (const auto leftOut = LeftOut(folder, file)) return *leftOut;
  return counterpart == nullptr ? FileClass::New : Compared(file, *counterpart);
}

std::optional<FileClass> Selection::LeftOut(std::string_view folder, const FoundEntry& file) const {
  const auto earlier = [](double time, const std::optional<double>& limit) { return limit && time < *limit; };
  const auto later = [](double time, const std::optional<double>& limit) { return limit && time > *limit; };
  if (IsExcludedFile(folder, file.name)) return FileClass::Named;
  if (rules_.leavesFileLinks && IsLink(file)) return FileClass::Link;
  if ((file.attributes & rules_.withoutAttributes) != 0) return FileClass::Attributes;
  if (rules_.withAttributes && (file.attributes & *rules_.withAttributes) == 0) return FileClass::Attributes;
  if ((~file.attributes & rules_.requiredAttributes) != 0) return FileClass::Attributes;
  if (rules_.largest && file.size > *rules_.largest) return FileClass::Large;
  if (rules_.smallest && file.size < *rules_.smallest) return FileClass::Small;
  if (earlier(file.lastWrite, rules_.oldest)) return FileClass::TooOld;
  if (later(file.lastWrite, rules_.newest)) return FileClass::TooNew;
  if (earlier(file.lastAccess, rules_.oldestAccess)) return FileClass::TooOld;
  if (later(file.lastAccess, rules_.newestAccess)) return FileClass::TooNew;
  return {};
}

FileClass Selection::Compared(const FoundEntry& file, const FoundEntry& counterpart) const {
  if (IsFolder(counterpart)) return FileClass::Mismatch;
  if (!SameTime(file.lastWrite, counterpart.lastWrite)) {
    return file.lastWrite > counterpart.lastWrite ? FileClass::Newer : FileClass::Older;
  }
  if (file.size != counterpart.size) return FileClass::Changed;
  const uint32_t changed = (file.attributes ^ counterpart.attributes) & rules_.comparedAttributes;
  return changed != 0 ? FileClass::Tweaked : FileClass::Same;
}

bool Selection::SameTime(double a, double b) const {
  const double step = rules_.timeStep + kRounding;
  const double apart = std::abs(a - b);
  return apart <= step || (rules_.ignoresDaylight && std::abs(apart - kHour) <= step);
}
