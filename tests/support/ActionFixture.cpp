#include "support/ActionFixture.h"

#include "coreapi/Vekactionapi.h"

void RecordingEvents::Add(std::string_view kind, std::string_view rest) {
  events.push_back(std::string(kind) + ' ' + std::string(rest));
}

StringList RecordingEvents::Of(std::string_view kind) const {
  StringList found = events;
  std::erase_if(found, [kind](const std::string& event) { return !event.starts_with(kind); });
  return found;
}

void RecordingEvents::Message(std::string_view path, std::string_view text) {
  Add("message", std::string(path) + ' ' + std::string(text));
  lines.emplace_back(text);
}

void RecordingEvents::Status(std::string_view path, const StringList& status) {
  Add("status", path);
  lines.insert(lines.end(), status.begin(), status.end());
}

void RecordingEvents::Progress(std::string_view path, std::string_view text, int32_t percent) {
  Add("progress", std::string(path) + ' ' + std::string(text) + ' ' + std::to_string(percent));
}

void RecordingEvents::Variable(std::string_view path, std::string_view name, const Variant& value) {
  Add("variable", std::string(path) + ' ' + std::string(name) + '=' + VariantToText(value));
}

void RecordingEvents::Error(std::string_view path, std::string_view text) {
  Add("error", std::string(path) + ' ' + std::string(text));
  errors.emplace_back(text);
}

void RecordingEvents::ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) {
  Add("end", std::string(place.path) + ' ' + std::string(ActionResultName(outcome.result)));
}

void RecordingEvents::Process(std::string_view path, std::string_view commandLine, std::string_view folder) {
  Add("process", std::string(path) + ' ' + std::string(commandLine) + '|' + std::string(folder));
}

void RecordingEvents::BuildEnd(const BuildSummary& summary) {
  Add("build-end", std::string(ActionResultName(summary.result)) + ' ' + std::to_string(summary.actions) +
                       ' ' + std::to_string(summary.failures));
}

ActionFixture::ActionFixture(const Wrap& wrap, bool unattended)
    : owner_(
          CreatePlatform([](char) { return std::nullopt; }, [this] { return folder.Path("registry.reg"); })),
      platform_(wrap ? wrap(owner_->Get()) : owner_->Get(), fault),
      context_(platform_.Get(), catalogue_, events_, unattended) {}

bool ActionFixture::Run(TCustomVekAction& action) {
  events_.Clear();
  return action.Run();
}
