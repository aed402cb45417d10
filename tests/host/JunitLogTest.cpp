#include <algorithm>
#include <functional>
#include <pugixml.hpp>

#include "gmock/gmock.h"

#include "host/LogTesting.h"
#include "host/log/Logs.h"

namespace {

std::string Record(const std::function<void(EventSink&)>& play) {
  MemoryStream stream;
  LogOutput output(stream, {});
  const auto log = CreateJunitLog(output);
  log->At(*ParseIso8601("2007-03-05T10:00:00"));
  play(*log);
  return stream.Text();
}

/// The report as a CI system reads it.
class Report {
 public:
  explicit Report(const std::string& xml) {
    const auto parsed =
        document_.load_buffer(xml.data(), xml.size(), pugi::parse_default | pugi::parse_ws_pcdata_single);
    EXPECT_TRUE(parsed) << parsed.description() << '\n' << xml;
    suite = document_.first_child().child("testsuite");
  }

  /// "tests failures errors skipped"
  std::string Counts() const {
    std::string counts;
    for (const char* name : {"tests", "failures", "errors", "skipped"})
      counts += suite.attribute(name).value();
    return counts;
  }

  pugi::xml_node Case(const char* name) const {
    return suite.find_child_by_attribute("testcase", "name", name);
  }

  pugi::xml_node suite;

 private:
  pugi::xml_document document_;
};

TEST(JunitLog, ShowsABuild) {
  EXPECT_EQ(Record(PlaySmallBuild), R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites>
  <testsuite name="demo.vekproj" timestamp="2007-03-05T10:00:00" tests="2" failures="0" errors="0" skipped="2" time="2.000">
    <testcase name="Delete File(s): *.obj" classname="Clean" time="0.250">
      <skipped message="failed, ignored: Access is denied."/>
      <system-out>Deleting files : *.obj
 --&gt; Access is denied.
0 Files Deleted.
</system-out>
    </testcase>
    <testcase name="Create out" classname="Clean" time="0.000">
      <skipped/>
    </testcase>
    <system-out>Cleaned
</system-out>
  </testsuite>
</testsuites>
)");
}

TEST(JunitLog, AFailureCarriesTheLineThatExplainsIt) {
  const struct {
    std::function<void(EventSink&)> talk;
    std::string_view wanted;
  } kCases[] = {
      {[](EventSink&) {}, "failed"},
      {[](EventSink& log) { log.Message("/1/1", "first\n  last \n \n"); }, "last"},
      {[](EventSink& log) { log.Error("/1/1", "Unknown variable \"A\""), log.Message("/1/1", "after"); },
       "Unknown variable \"A\""},
      {[](EventSink& log) {
         log.Error("/1/1", "Attempt 1 of 2 failed; trying again"), log.Status("/1/1", {"--> Denied", "0"});
         log.Error("/1/1", "Given up"), log.Message("/1/1", "error: of a program");
       },
       "Denied"},
  };
  for (const auto& [talk, wanted] : kCases) {
    const Report report(Record([talk = talk](EventSink& log) {
      log.ActionStart(kDelete);
      talk(log);
      log.ActionEnd(kDelete, {ActionResult::Failure, 0});
      log.BuildEnd({ActionResult::Failure, 0, 1, 1});
    }));
    EXPECT_EQ(report.Case("Delete File(s): *.obj").child("failure").attribute("message").value(), wanted);
    EXPECT_EQ(report.Counts(), "1100");
  }
}

TEST(JunitLog, AnActionWithChildrenShowsOnlyWhenNoneOfThemExplainsItsEnd) {
  const struct {
    ActionResult child, group;
    std::string_view wanted;  // tests, failures, errors, skipped
  } kCases[] = {
      {ActionResult::Success, ActionResult::Success, "1000"},
      {ActionResult::Failure, ActionResult::Success, "1100"},
      {ActionResult::Failure, ActionResult::Failure, "1100"},
      {ActionResult::Success, ActionResult::Failure, "2100"},
      {ActionResult::Stopped, ActionResult::Stopped, "1010"},
      {ActionResult::Success, ActionResult::Stopped, "2010"},
      {ActionResult::Skipped, ActionResult::Failure, "2101"},
  };
  const ActionPlace outer{"", "ACTIONGROUP", "Outer", true};
  for (const auto& [child, group, wanted] : kCases) {
    const Report report(Record([&, child = child, group = group](EventSink& log) {
      log.ActionStart(outer);
      log.ActionStart(kGroup);
      log.ActionStart(kCreate);
      log.ActionEnd(kCreate, {child, 0});
      log.ActionEnd(kGroup, {group, 0});
      log.ActionEnd(outer, {group, 0});
      log.BuildEnd({group, 0, 3, 0});
    }));
    EXPECT_EQ(report.Counts(), wanted);
    EXPECT_FALSE(report.Case("Outer"));
  }
}

TEST(JunitLog, ABuildThatFailedOutsideItsActionsIsNotGreen) {
  const auto endOnly = [](ActionResult result) {
    return Report(Record([result](EventSink& log) { log.BuildEnd({result, 0, 0, 0}); }));
  };
  EXPECT_EQ(endOnly(ActionResult::Success).Counts(), "0000");
  EXPECT_EQ(endOnly(ActionResult::Failure).Counts(), "1100");
  EXPECT_EQ(endOnly(ActionResult::Stopped).Counts(), "1010");

  const Report report(Record([](EventSink& log) {
    log.Error("", "cannot expand \"OUT\"");
    log.BuildEnd({ActionResult::Failure, 0, 0, 0});
  }));
  EXPECT_EQ(report.Counts(), "1100");
  EXPECT_STREQ(report.Case("Build").child("failure").attribute("message").value(), "cannot expand \"OUT\"");
}

TEST(JunitLog, NamesAreUniqueAndGroupsAreClasses) {
  const Report report(Record([](EventSink& log) {
    log.BuildStart("demo.vekproj");
    const ActionPlace outer{"/2", "LISTITERATOR", "Loop", true, "1"};
    for (const std::string_view passes : {"1.1", "1.2", "1.2", "1.2"}) {
      log.ActionStart(outer);
      log.ActionStart(kGroup);
      for (ActionPlace place : {kDelete, kCreate}) {
        place.passes = passes;
        place.title = "Step";
        log.ActionStart(place);
        log.ActionEnd(place, {ActionResult::Success, 0});
      }
      log.ActionEnd(kGroup, {ActionResult::Success, 0});
      log.ActionEnd(outer, {ActionResult::Success, 0});
    }
    log.ActionStart(kCreate);
    log.ActionEnd(kCreate, {ActionResult::Failure, 0, 1, false, true});
    log.BuildEnd({});
  }));
  StringList names;
  for (const auto& testCase : report.suite.children("testcase"))
    names.emplace_back(testCase.attribute("name").value());
  EXPECT_THAT(names, testing::ElementsAre("Step (pass 1.1)", "Step (pass 1.1) [/1/2]", "Step (pass 1.2)",
                                          "Step (pass 1.2) [/1/2]", "Step (pass 1.2) [/1/1]",
                                          "Step (pass 1.2) [/1/2] #2", "Step (pass 1.2) [/1/1] #2",
                                          "Step (pass 1.2) [/1/2] #3", "Create out"));
  EXPECT_STREQ(report.Case("Step (pass 1.1)").attribute("classname").value(), "Loop / Clean");
  EXPECT_STREQ(report.Case("Create out").attribute("classname").value(), "demo.vekproj");
  EXPECT_EQ(report.Counts(), "9001");  // a failure that is passed over is none
}

TEST(JunitLog, InAFileTheReportIsWholeAllTheTime) {
  struct File final : OutputStream {
    SysResult Write(std::string_view) override { return SysResult::Failure(Win32Error::NotSupported); }
    bool CanRewrite() override { return true; }
    SysResult WriteAt(uint64_t position, std::string_view bytes) override {
      const auto place = static_cast<size_t>(position);
      text.resize(std::max(text.size(), place + bytes.size()));
      text.replace(place, bytes.size(), bytes);
      if (place == 0) counts += Report(text).Counts() + ' ';
      return {};
    }
    std::string text, counts;
  } file;
  LogOutput output(file, {});
  PlaySmallBuild(*CreateJunitLog(output));
  EXPECT_EQ(file.counts, "0000 1001 2002 2002 ");
  EXPECT_STREQ(Report(file.text).suite.child_value("system-out"), "Cleaned\n");
  EXPECT_FALSE(output.Failed());
}

TEST(JunitLog, EveryPassOfALoopIsACaseWithItsOwnOutput) {
  const Report report(Record([](EventSink& log) {
    for (const char* text : {"first", "second"}) {
      log.ActionStart(kCreate);
      log.Message("/1/2", text);
      log.ActionEnd(kCreate, {ActionResult::Success, 0});
    }
    log.BuildEnd({ActionResult::Success, 0, 2, 0});
  }));
  EXPECT_EQ(report.Counts(), "2000");
  EXPECT_STREQ(report.suite.first_child().child_value("system-out"), "first\n");
  EXPECT_STREQ(report.suite.last_child().child_value("system-out"), "second\n");
}

TEST(JunitLog, IsWellFormedWhateverTheBytes) {
  std::string bytes;
  for (int c = 0; c < 256; ++c) bytes += static_cast<char>(c);
  bytes += "]]></system-out><!--&amp;\"'";
  const Report report(Record([&bytes](EventSink& log) {
    log.BuildStart(bytes);
    log.ActionStart({"/1", bytes, bytes});
    log.Message("/1", bytes);
    log.ActionEnd({"/1", bytes, bytes}, {ActionResult::Failure, 0});
    log.Error("", bytes);
    log.BuildEnd({ActionResult::Failure, 0, 1, 1});
  }));
  EXPECT_EQ(report.Counts(), "2200");
  const std::string output = report.suite.first_child().child_value("system-out");
  EXPECT_TRUE(output.ends_with("]]></system-out><!--&amp;\"'\n"));
  EXPECT_EQ(output.find_first_of("\x1b\x01"), std::string::npos);
}

}  // namespace
