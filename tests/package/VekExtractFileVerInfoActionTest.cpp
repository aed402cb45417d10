#include "gmock/gmock.h"

#include "interaction/VekExtractFileVerInfoAction.h"
#include "interaction/Vekversionresource.h"
#include "support/ActionFixture.h"
#include "support/VersionImage.h"

namespace {

using testing::ElementsAre;

std::optional<VersionResource> Read(const std::string& bytes) {
  return ReadVersionResource(
      [&bytes](uint64_t at, size_t count) { return at < bytes.size() ? bytes.substr(at, count) : ""; });
}

TEST(VersionResource, TakesTheFirstTranslationThatIsListed) {
  const VersionImage::Table german{"040704B0", {{"CompanyName", "Gr\u00FC\u00DFe"}}};
  const VersionImage::Table english{"040904b0", {{"CompanyName", "Hello"}, {"Comments", ""}}};
  const struct {
    std::string translation, wanted;
  } kCases[] = {{"040704b0", "Gr\u00FC\u00DFe"},
                {"040904B0", "Hello"},
                {"", "Gr\u00FC\u00DFe"},
                {"000004e4", "Gr\u00FC\u00DFe"}};
  for (const auto& [translation, wanted] : kCases) {
    for (const bool is64Bit : {false, true}) {
      const auto resource = Read(
          VersionImage{.is64Bit = is64Bit, .translation = translation, .tables = {german, english}}.Bytes());
      ASSERT_TRUE(resource) << translation;
      EXPECT_EQ(VersionText(resource->fileVersion), "1.2.3.4");
      EXPECT_EQ(VersionText(resource->productVersion), "5.6.7.8");
      ASSERT_TRUE(resource->Find("companyname"));
      EXPECT_EQ(*resource->Find("companyname"), wanted);
    }
  }
}

TEST(VersionResource, AFileThatEndsEarlyHasNone) {
  const std::string bytes =
      VersionImage{.tables = {{"040904b0", {{"CompanyName", "Hello"}, {"Comments", "x"}}}}}.Bytes();
  for (size_t size = 0; size < bytes.size(); ++size) EXPECT_FALSE(Read(bytes.substr(0, size))) << size;
  EXPECT_TRUE(Read(bytes));
  EXPECT_FALSE(Read(VersionImage{.resourceType = 3}.Bytes()));
}

struct ExtractVersionTest : ActionFixture, testing::Test {
  using ActionFixture::Run;

  ExtractVersionTest() {
    folder.Write("a.dll", VersionImage{.tables = {{"040904b0", {{"CompanyName", "Ada"}}}}}.Bytes());
    folder.Write("plain.txt", "MZ is how it begins");
    action.FileVersionVar = "F";
    action.ProductVersionVar = "%P%";
    action.MajorVar = "MAJOR";
    action.BuildVar = "BUILD";
    action.StringNames = {"CompanyName", "", "Comments"};
    action.StringVars = {"COMPANY", "x", "COMMENTS"};
    Context().SetVariable("P", std::string("Q"));
  }

  bool RunOn(const std::string& name) {
    action.FileName = path = folder.Path(name);
    return Run(action);
  }
  std::string Value(const std::string& name) {
    return Context().IsVariableDefined(name) ? VariantToText(Context().GetVariableValue(name)) : "(none)";
  }

  TVekExtractFileVerInfoAction action{Context()};
  std::string path;
};

TEST_F(ExtractVersionTest, PutsWhatItFindsIntoVariables) {
  EXPECT_FALSE(RunOn("a.dll"));
  EXPECT_THAT(Lines(),
              ElementsAre("File version of a.dll is 1.2.3.4", "No version entry Comments in " + path));
  EXPECT_EQ(Value("COMMENTS"), "(none)");
  action.FailIfNotFound = false;
  EXPECT_TRUE(RunOn("a.dll"));
  EXPECT_EQ(Value("F") + ' ' + Value("Q"), "1.2.3.4 5.6.7.8");
  EXPECT_EQ(Context().GetVariableValue("MAJOR"), Variant(int64_t{1}));
  EXPECT_EQ(Value("BUILD"), "4");
  EXPECT_EQ(Value("COMPANY") + '|' + Value("COMMENTS"), "Ada|");
}

TEST_F(ExtractVersionTest, SaysWhatIsMissing) {
  EXPECT_FALSE(RunOn("none.dll"));
  EXPECT_THAT(Lines(), ElementsAre("ERROR - File missing: " + path));
  EXPECT_FALSE(RunOn("plain.txt"));
  EXPECT_THAT(Lines(), ElementsAre("No version information in " + path));
  EXPECT_EQ(Value("F"), "(none)");
  action.FailIfNotFound = false;
  EXPECT_TRUE(RunOn("plain.txt"));
  EXPECT_EQ(Value("F") + '|' + Value("MAJOR") + '|' + Value("COMPANY"), "|0|");
}

}  // namespace
