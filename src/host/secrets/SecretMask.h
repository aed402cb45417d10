#pragma once

#include "host/log/EventSink.h"
#include "host/secrets/Secrets.h"

/// The one place that all events pass on their way to the logs: what is secret leaves it hidden.
class SecretMask final : public EventSink {
 public:
  SecretMask(EventSink& events, const Secrets& secrets) : events_(events), secrets_(secrets) {}

  void BuildStart(std::string_view project) override;
  void ActionStart(const ActionPlace& place) override;
  void Message(std::string_view path, std::string_view text) override;
  void ProgramLine(std::string_view path, ProgramStream stream, std::string_view text) override;
  void Status(std::string_view path, const StringList& lines) override;
  void Progress(std::string_view path, std::string_view text, int32_t percent) override;
  void Variable(std::string_view path, std::string_view name, const Variant& value) override;
  void Error(std::string_view path, std::string_view text) override;
  void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) override;
  void BuildEnd(const BuildSummary& summary) override;
  void Process(std::string_view path, std::string_view commandLine, std::string_view folder) override;
  void At(TDateTime utc) override;
  void Settle() override { events_.Settle(); }
  void Hold(bool held) override;

 private:
  /// Hands over the text, masked where there is anything to hide.
  template <class Use>
  void Masked(std::string_view text, const Use& use) const;

  EventSink& events_;
  const Secrets& secrets_;
};
