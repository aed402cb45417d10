#include "pages/VekFileAttributeEditor.h"

#include <cstdint>
#include <iterator>

StringList TFileAttributeEditor::GetValues() const {
  return {std::begin(kAttributeSettingTexts), std::end(kAttributeSettingTexts)};
}

std::string TFileAttributeEditor::GetValue() const {
  const auto ordinal = static_cast<size_t>(std::get<int64_t>(Property().get(Action())));
  return std::string(kAttributeSettingTexts[ordinal]);
}

/// What is neither of the two texts that change something leaves the attribute alone.
void TFileAttributeEditor::SetValue(std::string_view text) {
  int64_t ordinal = SameText(text, kAttributeSettingTexts[1]) ? 1 : 0;
  if (SameText(text, kAttributeSettingTexts[2])) ordinal = 2;
  Property().set(Action(), ordinal);
}
