#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "host/log/DisplayText.h"
#include "host/log/LogOutput.h"
#include "host/log/Logs.h"

namespace {

using Json = nlohmann::json;

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
  explicit JsonLine(std::string_view event) { Text("event", event); }

  JsonLine& Text(std::string_view key, std::string_view text) {
    if (!IsPlainText(text) || HasEscape(text)) return Value(key, text);
    Key(key).append(1, '"').append(text) += '"';
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

  void BuildStart(std::string_view project) override {
    Write(JsonLine("build-start").Text("project", project));
  }

  void ActionStart(const ActionPlace& place) override {
    Write(JsonLine("action-start")
              .Text("path", place.path)
              .Text("type", place.type)
              .Text("title", place.title));
  }

  void Message(std::string_view path, std::string_view text) override {
    Write(JsonLine("message").Text("path", path).Text("text", text));
  }

  void Status(std::string_view path, const StringList& lines) override {
    Write(JsonLine("status").Text("path", path).Value("lines", lines));
  }

  void Progress(std::string_view path, std::string_view text, int32_t percent) override {
    Write(JsonLine("progress").Text("path", path).Text("text", text).Value("percent", percent));
  }

  void Variable(std::string_view path, std::string_view name, const Variant& value) override {
    Write(JsonLine("variable")
              .Text("path", path)
              .Text("name", name)
              .Text("type", VariantTypeName(value))
              .Value("value", ToJson(value)));
  }

  void Error(std::string_view path, std::string_view text) override {
    Write(JsonLine("error").Text("path", path).Text("text", text));
  }

  void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) override {
    JsonLine line("action-end");
    line.Text("path", place.path)
        .Text("result", ActionResultName(outcome.result))
        .Value("seconds", ToMicroseconds(outcome.seconds))
        .Value("errors", outcome.errors);
    if (outcome.ignored) line.Value("ignored", true);
    Write(line);
  }

  void BuildEnd(const BuildSummary& summary) override {
    Write(JsonLine("build-end")
              .Text("result", ActionResultName(summary.result))
              .Value("seconds", ToMicroseconds(summary.seconds))
              .Value("actions", summary.actions)
              .Value("failures", summary.failures));
  }

  void Hold(bool held) override { output_.Hold(held); }

 private:
  void Write(JsonLine& line) { output_.Write(line.End()); }

  LogOutput& output_;
};

}  // namespace

std::unique_ptr<EventSink> CreateJsonLog(LogOutput& output) { return std::make_unique<JsonLog>(output); }
