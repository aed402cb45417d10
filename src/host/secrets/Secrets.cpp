#include "host/secrets/Secrets.h"

#include <algorithm>

#include "host/secrets/SecretForms.h"

namespace {

constexpr size_t kLeastCharacters = 4;

bool HidesNothing(std::string_view text) {
  size_t characters = 0;
  for (size_t i = 0; i < text.size() && characters < kLeastCharacters; ++characters) NextCodePoint(text, i);
  return characters < kLeastCharacters;
}

}  // namespace

void Secrets::AddValue(const Variant& value) {
  if (outer_) return outer_->AddValue(value);
  const std::string text = VariantToText(value);
  AddForms(text);
  const StringList lines = SplitLines(text);
  if (lines.size() > 1) {
    for (const std::string& line : lines) AddForms(Trim(line));
  }
}

void Secrets::AddForms(std::string_view text) {
  if (HidesNothing(text)) return;
  for (std::string& form : FormsOf(text)) forms_.insert(std::move(form));
}

std::string Secrets::Mask(std::string_view text) const {
  if (outer_) return outer_->Mask(text);
  struct Range {
    size_t start, end;
  };
  std::vector<Range> hidden;
  for (const std::string& form : forms_) {
    for (size_t at = 0; (at = text.find(form, at)) != std::string_view::npos; ++at)
      hidden.push_back({at, at + form.size()});
  }
  std::ranges::sort(hidden, {}, &Range::start);

  // What overlaps is one secret to the eye, and gives none of them away.
  std::string masked;
  size_t done = 0;
  for (size_t i = 0; i < hidden.size();) {
    const size_t start = hidden[i].start;
    size_t end = hidden[i].end;
    while (++i < hidden.size() && hidden[i].start < end) end = std::max(end, hidden[i].end);
    masked.append(text.substr(done, start - done)).append(kSecretText);
    done = end;
  }
  return masked.append(text.substr(done));
}
