#include <algorithm>
#include <nlohmann/json.hpp>

#include "gtest/gtest.h"

#include "host/catalogue/Catalogue.h"
#include "host/catalogue/Description.h"
#include "support/NullHost.h"
#include "support/SampleAction.h"

namespace {

TEST(Description, AVaryingDefaultIsSaidNotShown) {
  Catalogue catalogue;
  catalogue.RegisterAction("Sample", "C", TSampleAction::Class(), "SAMPLE");
  NullHost host;
  const auto json = nlohmann::json::parse(DescribeAsJson(catalogue, catalogue.Entries()[0], host));
  for (const auto& property : json.at("properties")) {
    EXPECT_EQ(property.at("default") == "varies", property.at("name") == "When") << property;
  }
  const std::string text = DescribeAsText(catalogue, catalogue.Entries()[0], host);
  EXPECT_NE(text.find(" varies"), std::string::npos) << text;
}

TEST(Description, FitsTheWidthOfATerminalAndLosesNothing) {
  Catalogue catalogue;
  catalogue.RegisterAction("Sample", "C", TSampleAction::Class(), "SAMPLE");
  NullHost host;
  const auto words = [](const std::string& text) {
    const StringList all = SplitAt(ReplaceAll(text, "\n", " "), " ");
    return std::ranges::count_if(all, [](const std::string& word) { return !word.empty(); });
  };
  const std::string whole = DescribeAsText(catalogue, catalogue.Entries()[0], host);
  for (const size_t width : {50u, 80u, 120u}) {
    const std::string text = DescribeAsText(catalogue, catalogue.Entries()[0], host, width);
    EXPECT_EQ(words(text), words(whole));
    for (const std::string& line : SplitLines(text)) EXPECT_LE(line.size(), width) << line;
  }
}

}  // namespace
