#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "host/log/LogOutput.h"
#include "host/log/Logs.h"

namespace {

using Json = nlohmann::ordered_json;

double ToMicroseconds(double seconds) { return std::round(seconds * 1e6) / 1e6; }

/// What JSON has a type for keeps it; the rest is text.
Json ToJson(const Variant& value) {
  if (const auto* number = std::get_if<int64_t>(&value)) return *number;
  if (const auto* truth = std::get_if<bool>(&value)) return *truth;
  if (const auto* number = std::get_if<double>(&value); number != nullptr && std::isfinite(*number))
    return *number;
  return VariantToText(value);
}

class JsonLog final : public EventSink {
 public:
  explicit JsonLog(LogOutput& output) : output_(output) {}

  void BuildStart(std::string_view project) override {
    Write({{"event", "build-start"}, {"project", project}});
  }

  void ActionStart(const ActionPlace& place) override {
    Write({{"event", "action-start"}, {"path", place.path}, {"type", place.type}, {"title", place.title}});
  }

  void Message(std::string_view path, std::string_view text) override {
    Write({{"event", "message"}, {"path", path}, {"text", text}});
  }

  void Status(std::string_view path, const StringList& lines) override {
    Write({{"event", "status"}, {"path", path}, {"lines", lines}});
  }

  void Progress(std::string_view path, std::string_view text, int32_t percent) override {
    Write({{"event", "progress"}, {"path", path}, {"text", text}, {"percent", percent}});
  }

  void Variable(std::string_view path, std::string_view name, const Variant& value) override {
    Write({{"event", "variable"},
           {"path", path},
           {"name", name},
           {"type", VariantTypeName(value)},
           {"value", ToJson(value)}});
  }

  void Error(std::string_view path, std::string_view text) override {
    Write({{"event", "error"}, {"path", path}, {"text", text}});
  }

  void ActionEnd(const ActionPlace& place, ActionResult result, double seconds) override {
    Write({{"event", "action-end"},
           {"path", place.path},
           {"result", ActionResultName(result)},
           {"seconds", ToMicroseconds(seconds)}});
  }

  void BuildEnd(const BuildSummary& summary) override {
    Write({{"event", "build-end"},
           {"result", ActionResultName(summary.result)},
           {"seconds", ToMicroseconds(summary.seconds)},
           {"actions", summary.actions},
           {"failures", summary.failures}});
  }

 private:
  void Write(const Json& event) {
    output_.Write(event.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n');
  }

  LogOutput& output_;
};

}  // namespace

std::unique_ptr<EventSink> CreateJsonLog(LogOutput& output) { return std::make_unique<JsonLog>(output); }
