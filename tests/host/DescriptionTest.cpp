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

}  // namespace
