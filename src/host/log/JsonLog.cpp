#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "host/log/DisplayText.h"
#include "host/log/LogOutput.h"
#include "host/log/Logs.h"

namespace {

using Json = nlohmann::json;

constexpr size_t kUsualLength = 256;

double ToMicroseconds(double seconds) { return std::round(seconds * 1e6) / 1e6; }

/// What JSON has a type for keeps it; the rest is text.
Json ToJson(const Variant& value) {
  if (const auto* number = std::get_if<int64_t>(&value)) return *number;
  if (const auto* truth = std::get_if<bool>(&value)) return *truth;
  if (const auto* number = std::get_if<double>(&value); number != nullptr && std::isfinite(*number))
    return *number;
  return VariantToText(value);
}

/// Whether plain text holds what JSON spells otherwise; branchless, as IsPlainText is.
bool HasEscape(std::string_view text) {
  unsigned char found = 0;
  for (const char c : text) found |= static_cast<unsigned char>((c == '"') | (c == '\\') | (c == '\t'));
  return found != 0;
}

/// One event as it is put together. Most text needs no escapes and is copied.
class JsonLine {
 public:
  JsonLine(std::string_view event, std::string_view time) {
    line_.reserve(kUsualLength);
    Text("event", event).Text("time", time);
  }

  JsonLine& Text(std::string_view key, std::string_view text) {
    if (!IsPlainText(text) || HasEscape(text)) return Value(key, text);
    Key(key).append(1, '"').append(text) += '"';
    return *this;
  }

  /// Rounded to microseconds.
  JsonLine& Seconds(std::string_view key, double seconds) {
    char text[32];
    const std::string_view number(
        text, static_cast<size_t>(std::to_chars(text, std::end(text), ToMicroseconds(seconds)).ptr - text));
    Key(key).append(number).append(number.find_first_of(".e") == number.npos ? ".0" : "");
    return *this;
  }

  JsonLine& Number(std::string_view key, int64_t number) {
    Key(key) += std::to_string(number);
    return *this;
  }

  JsonLine& Value(std::string_view key, const Json& value) {
    Key(key) += value.dump(-1, ' ', false, Json::error_handler_t::replace);
    return *this;
  }

  std::string_view End() { return line_ += "}\n"; }

 private:
  std::string& Key(std::string_view key) {
    return line_.append(line_.empty() ? "{\"" : ",\"").append(key).append("\":");
  }

  std::string line_;
};

class JsonLog final : public EventSink {
 public:
  explicit JsonLog(LogOutput& output) : output_(output) {}

  void BuildStart(std::string_view project) override { Write(Line("build-start").Text("project", project)); }

  void ActionStart(const ActionPlace& place) override {
    Write(Line("action-start").Text("path", place.path).Text("type", place.type).Text("title", place.title));
  }

  void Message(std::string_view path, std::string_view text) override {
    Write(Line("message").Text("path", path).Text("text", text));
  }

  void ProgramLine(std::string_view path, ProgramStream stream, std::string_view text) override {
    const std::string_view name = stream == ProgramStream::StdOut ? "stdout" : "stderr";
    Write(Line("message").Text("path", path).Text("text", text).Text("stream", name));
  }

  void Status(std::string_view path, const StringList& lines) override {
    Write(Line("status").Text("path", path).Value("lines", lines));
  }

  void Progress(std::string_view path, std::string_view text, int32_t percent) override {
    Write(Line("progress").Text("path", path).Text("text", text).Number("percent", percent));
  }

  void Variable(std::string_view path, std::string_view name, const Variant& value) override {
    Write(Line("variable")
              .Text("path", path)
              .Text("name", name)
              .Text("type", VariantTypeName(value))
              .Value("value", ToJson(value)));
  }

  void Error(std::string_view path, std::string_view text) override {
    Write(Line("error").Text("path", path).Text("text", text));
  }

  void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) override {
    JsonLine line = Line("action-end");
    line.Text("path", place.path)
        .Text("result", ActionResultName(outcome.result))
        .Seconds("seconds", outcome.seconds)
        .Number("errors", outcome.errors);
    if (outcome.ignored) line.Value("ignored", true);
    Write(line);
  }

  void BuildEnd(const BuildSummary& summary) override {
    Write(Line("build-end")
              .Text("result", ActionResultName(summary.result))
              .Seconds("seconds", summary.seconds)
              .Number("actions", summary.actions)
              .Number("failures", summary.failures));
  }

  void Process(std::string_view path, std::string_view commandLine, std::string_view folder) override {
    Write(Line("process").Text("path", path).Text("commandLine", commandLine).Text("folder", folder));
  }

  void At(TDateTime utc) override {
    const int64_t millisecond = std::llround(utc.days * 86'400'000);
    if (std::exchange(millisecond_, millisecond) != millisecond) time_ = ToIso8601Utc(utc);
  }

  void Hold(bool held) override { output_.Hold(held); }

 private:
  JsonLine Line(std::string_view event) const { return JsonLine(event, time_); }
  void Write(JsonLine& line) { output_.Write(line.End()); }

  LogOutput& output_;
  int64_t millisecond_ = 0;
  std::string time_;  // text of the same, made anew when it changes
};

}  // namespace

std::unique_ptr<EventSink> CreateJsonLog(LogOutput& output) { return std::make_unique<JsonLog>(output); }
