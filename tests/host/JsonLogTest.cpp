#include <cmath>
#include <functional>
#include <limits>
#include <nlohmann/json.hpp>

#include "gtest/gtest.h"

#include "host/LogTesting.h"
#include "host/log/Logs.h"

namespace {

/// What is written, without the time that every event carries.
MemoryStream Record(const std::function<void(EventSink&)>& play) {
  MemoryStream stream;
  LogOutput output(stream, {});
  const auto log = CreateJsonLog(output);
  log->At({ParseIso8601("2007-03-05T10:00:00")->days + 0.1234 / 86400});
  play(*log);
  for (std::string& line : stream.writes) {
    const std::string time = R"("time":"2007-03-05T10:00:00.123Z",)";
    EXPECT_NE(line.find(time), std::string::npos) << line;
    line = ReplaceAll(line, time, "");
  }
  return stream;
}

TEST(JsonLog, WritesOneObjectALine) {
  const MemoryStream stream = Record(PlaySmallBuild);
  const std::vector<std::string> wanted = {
      R"({"event":"build-start","project":"demo.vekproj"})",
      R"({"event":"action-start","path":"/1","type":"ACTIONGROUP","title":"Clean"})",
      R"({"event":"variable","path":"/1","name":"OUT","type":"String","value":"C:\\out"})",
      R"({"event":"action-start","path":"/1/1","type":"HDELETEFILES","title":"Delete File(s): *.obj"})",
      R"({"event":"progress","path":"/1/1","text":"Deleting","percent":50})",
      R"({"event":"status","path":"/1/1","lines":["Deleting files : *.obj"," --> Access is denied.",)"
      R"("0 Files Deleted."]})",
      R"({"event":"action-end","path":"/1/1","result":"failure","seconds":0.25,"errors":1,"ignored":true})",
      R"({"event":"action-start","path":"/1/2","type":"HCREATEDIR","title":"Create out"})",
      R"({"event":"action-end","path":"/1/2","result":"skipped","seconds":0.0,"errors":0})",
      R"({"event":"message","path":"/1","text":"Cleaned"})",
      R"({"event":"action-end","path":"/1","result":"success","seconds":1.5,"errors":0})",
      R"({"event":"build-end","result":"success","seconds":2.0,"actions":2,"failures":1})",
  };
  ASSERT_EQ(stream.writes.size(), wanted.size());
  for (size_t i = 0; i < wanted.size(); ++i) EXPECT_EQ(stream.writes[i], wanted[i] + '\n');
}

TEST(JsonLog, TypesTheValuesOfVariables) {
  const struct {
    Variant value;
    std::string_view wanted;
  } kCases[] = {
      {{}, R"("type":"String","value":"")"},
      {std::string("7"), R"("type":"String","value":"7")"},
      {std::numeric_limits<int64_t>::min(), R"("type":"Integer","value":-9223372036854775808)"},
      {false, R"("type":"Boolean","value":false)"},
      {0.1, R"("type":"Float","value":0.1)"},
      {std::nan(""), R"("type":"Float","value":"NaN")"},
      {-HUGE_VAL, R"("type":"Float","value":"-Infinity")"},
      {ParseIso8601("2007-03-05T10:00:00").value(), R"("type":"DateTime","value":"2007-03-05T10:00:00")"},
  };
  for (const auto& [value, wanted] : kCases) {
    const MemoryStream stream = Record([&value](EventSink& log) { log.Variable("", "V", value); });
    EXPECT_EQ(stream.Text(),
              std::string(R"({"event":"variable","path":"","name":"V",)").append(wanted) + "}\n");
  }
}

TEST(JsonLog, AnyBytesComeBackAsText) {
  const struct {
    std::string_view text, wanted;
  } kCases[] = {
      {"two\r\nlines\t\"quoted\" \\", "two\r\nlines\t\"quoted\" \\"},
      {std::string_view("\0\x1b\x7F", 3), std::string_view("\0\x1b\x7F", 3)},
      {"gr\u00FCn \U0001F600 \u2028", "gr\u00FCn \U0001F600 \u2028"},
      {"a\xFF\xC3(b", "a\uFFFD\uFFFD(b"},
      {"cut \xC3", "cut \uFFFD"},
  };
  for (const auto& [text, wanted] : kCases) {
    const MemoryStream stream = Record([text = text](EventSink& log) {
      log.Error("", text);
      log.Status(text, {std::string(text)});
      log.ActionStart({text, text, text});
      log.Variable("", text, std::string(text));
    });
    ASSERT_EQ(stream.writes.size(), 4u);
    for (const std::string& line : stream.writes) EXPECT_EQ(line.find('\n'), line.size() - 1) << line;
    EXPECT_EQ(nlohmann::json::parse(stream.writes[0])["text"], wanted);
    EXPECT_EQ(nlohmann::json::parse(stream.writes[1])["lines"][0], wanted);
    EXPECT_EQ(nlohmann::json::parse(stream.writes[2])["title"], wanted);
    EXPECT_EQ(nlohmann::json::parse(stream.writes[3])["value"], wanted);
  }
}

TEST(JsonLog, RoundsSecondsToMicroseconds) {
  const MemoryStream stream = Record([](EventSink& log) {
    log.ActionEnd(kDelete, {ActionResult::Stopped, 1.23456789});
  });
  EXPECT_EQ(stream.Text(),
            R"({"event":"action-end","path":"/1/1","result":"stopped","seconds":1.234568,"errors":0})"
            "\n");
}

}  // namespace
