#include "host/secrets/SecretMask.h"

template <class Use>
void SecretMask::Masked(std::string_view text, const Use& use) const {
  if (!secrets_.Any()) return use(text);
  use(secrets_.Mask(text));
}

void SecretMask::BuildStart(std::string_view project) {
  Masked(project, [this](std::string_view masked) { events_.BuildStart(masked); });
}

void SecretMask::ActionStart(const ActionPlace& place) {
  Masked(place.title, [&](std::string_view title) {
    ActionPlace masked = place;
    masked.title = title;
    events_.ActionStart(masked);
  });
}

void SecretMask::Message(std::string_view path, std::string_view text) {
  Masked(text, [&](std::string_view masked) { events_.Message(path, masked); });
}

void SecretMask::ProgramLine(std::string_view path, ProgramStream stream, std::string_view text) {
  Masked(text, [&](std::string_view masked) { events_.ProgramLine(path, stream, masked); });
}

void SecretMask::Status(std::string_view path, const StringList& lines) {
  if (!secrets_.Any()) return events_.Status(path, lines);
  StringList masked;
  for (const std::string& line : lines) masked.push_back(secrets_.Mask(line));
  events_.Status(path, masked);
}

void SecretMask::Progress(std::string_view path, std::string_view text, int32_t percent) {
  Masked(text, [&](std::string_view masked) { events_.Progress(path, masked, percent); });
}

void SecretMask::Variable(std::string_view path, std::string_view name, const Variant& value) {
  if (!secrets_.Any()) return events_.Variable(path, name, value);
  const std::string text = VariantToText(value);
  std::string masked = secrets_.IsSecret(name) ? std::string(kSecretText) : secrets_.Mask(text);
  events_.Variable(path, name, masked == text ? value : Variant(std::move(masked)));
}

void SecretMask::Error(std::string_view path, std::string_view text) {
  Masked(text, [&](std::string_view masked) { events_.Error(path, masked); });
}

void SecretMask::ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) {
  Masked(place.title, [&](std::string_view title) {
    ActionPlace masked = place;
    masked.title = title;
    events_.ActionEnd(masked, outcome);
  });
}

void SecretMask::BuildEnd(const BuildSummary& summary) { events_.BuildEnd(summary); }

void SecretMask::Process(std::string_view path, std::string_view commandLine, std::string_view folder) {
  Masked(commandLine, [&](std::string_view shownLine) {
    Masked(folder, [&](std::string_view shownFolder) { events_.Process(path, shownLine, shownFolder); });
  });
}

void SecretMask::At(TDateTime utc) { events_.At(utc); }
void SecretMask::Hold(bool held) { events_.Hold(held); }
