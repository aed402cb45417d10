#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "fileops/VekCopyMove.h"
#include "fileops/VekDeleteFilesAction.h"
#include "iterators/Vekfileiterator.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "support/ActionFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct DeleteFiles : ActionFixture, testing::Test {
  bool Delete(const std::string& spec) {
    action->SetFileSpec(spec);
    return ActionFixture::Run(*action);
  }
  void Write(std::initializer_list<const char*> names) {
    for (const char* name : names) folder.Write(name, "x");
  }
  void SetAttributes(const char* name, uint32_t attributes) {
    ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path(name), attributes));
  }

  std::unique_ptr<TDeleteFilesAction> action = Make<TDeleteFilesAction>();
};

TEST_F(DeleteFiles, DeletesTheMatchesInOneStatusMessage) {
  Write({"a.tmp", "B.TMP", "c.txt"});
  EXPECT_TRUE(Delete(folder.Path("*.tmp")));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + folder.Path("*.tmp"), "2 Files Deleted."));
  EXPECT_THAT(folder.Names(), ElementsAre("c.txt"));
  EXPECT_EQ(action->FilesAffected(), 2);
  EXPECT_EQ(Events().events.size(), 1u);
}

/// The real searches, which then tell that they broke off.
class BrokenFinder final : public Finder {
 public:
  explicit BrokenFinder(Finder& real) : real_(real) {}

  std::unique_ptr<FindSearch> Open(std::string_view spec, uint32_t mask, FindDetail detail,
                                   SysResult& result) override {
    return std::make_unique<Search>(real_.Open(spec, mask, detail, result));
  }

 private:
  struct Search final : FindSearch {
    explicit Search(std::unique_ptr<FindSearch> real) : real_(std::move(real)) {}
    bool Next(FoundEntry& entry) override { return real_->Next(entry); }
    SysResult Result() const override { return SysResult::Failure(Win32Error::GeneralFailure); }
    std::unique_ptr<FindSearch> real_;
  };

  Finder& real_;
};

TEST(SearchesThatBreakOff, AreErrorsOfEveryWalk) {
  std::unique_ptr<BrokenFinder> finder;
  ActionFixture fixture([&](const Platform& real) {
    finder = std::make_unique<BrokenFinder>(*real.finder);
    Platform broken = real;
    broken.finder = finder.get();
    return broken;
  });
  const auto deletes = fixture.Make<TDeleteFilesAction>();
  const auto copies = fixture.Make<TCopyFilesAction>();
  const auto moves = fixture.Make<TMoveFilesAction>();
  const auto iterates = fixture.Make<TFileIterator>();
  const std::string spec = fixture.folder.Path("*.tmp");
  deletes->SetFileSpec(spec);
  copies->SetFileSpec(spec);
  copies->Target = WideString(fixture.folder.Path());
  copies->SetRecurse(true);
  moves->SetFileSpec(spec);
  moves->Target = WideString(fixture.folder.Path());
  iterates->SetFileSpec(WideString(spec));
  iterates->SetLoopVariable("F");
  for (TCustomVekAction* action :
       std::initializer_list<TCustomVekAction*>{deletes.get(), copies.get(), moves.get(), iterates.get()}) {
    fixture.Run(*action);
    EXPECT_THAT(fixture.Errors(),
                ElementsAre(testing::AllOf(testing::StartsWith("Cannot search " + fixture.folder.Path()),
                                           testing::EndsWith(SystemText(Win32Error::GeneralFailure)))));
  }
}

TEST_F(DeleteFiles, StopsAtAReadOnlyFileInTheOrderOfUpperCasedNames) {
  Write({"a.tmp", "B.tmp", "c.tmp"});
  SetAttributes("B.tmp", FileAttribute::ReadOnly);
  const std::string here = folder.WindowsPath() + '\\';
  EXPECT_FALSE(Delete(here + "*.tmp"));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + here + "*.tmp",
                                   " --> Error Deleting File : " + here + "B.tmp",
                                   " --> " + SystemText(Win32Error::AccessDenied), "1 Files Deleted."));
  EXPECT_THAT(folder.Names(), ElementsAre("B.tmp", "c.tmp"));
}

TEST_F(DeleteFiles, ClearsReadOnlyAndHiddenWhenToldTo) {
  Write({"a.tmp", ".b.tmp", "c.tmp"});
  SetAttributes("a.tmp", FileAttribute::ReadOnly);
  SetAttributes("c.tmp", FileAttribute::ReadOnly | FileAttribute::Hidden);
  action->DeleteReadOnly = true;
  action->DeleteHidden = true;
  EXPECT_TRUE(Delete(folder.Path("*.tmp")));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + folder.Path("*.tmp"), "3 Files Deleted."));
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(DeleteFiles, HiddenFilesGoWithoutBeingCleared) {
  Write({".hidden"});
  EXPECT_TRUE(Delete(folder.Path("*")));
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(DeleteFiles, NeverMatchesSystemFilesAndFolders) {
  Write({"kept.tmp", "sub.tmp/inner.tmp"});
  SetAttributes("kept.tmp", FileAttribute::System | FileAttribute::Hidden);
  EXPECT_FALSE(Delete(folder.Path("*.tmp")));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + folder.Path("*.tmp"), "0 Files Deleted."));
  EXPECT_THAT(folder.Names(), ElementsAre("kept.tmp", "sub.tmp"));
}

TEST_F(DeleteFiles, NoFileIsAFailureOnlyWhenAsked) {
  EXPECT_FALSE(Delete(folder.Path("*.tmp")));
  action->FailIfNoFile = false;
  EXPECT_TRUE(Delete(folder.Path("*.tmp")));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + folder.Path("*.tmp"), "0 Files Deleted."));
  EXPECT_TRUE(Delete(folder.Path("missing\\*.tmp")));
}

TEST_F(DeleteFiles, BlankSpecSaysNothing) {
  for (const bool failIfNoFile : {true, false}) {
    action->FailIfNoFile = failIfNoFile;
    EXPECT_EQ(Delete(" \t"), !failIfNoFile);
    EXPECT_THAT(Events().events, IsEmpty());
  }
}

TEST_F(DeleteFiles, ExpansionFailureIsAStatusMessage) {
  EXPECT_FALSE(Delete("%NO_SUCH_VARIABLE_ANYWHERE%\\*.tmp"));
  ASSERT_EQ(Lines().size(), 2u);
  EXPECT_EQ(Lines()[0], "Unable to Delete file : ");
  EXPECT_THAT(Lines()[1],
              testing::AllOf(testing::StartsWith("--> "), testing::HasSubstr("NO_SUCH_VARIABLE_ANYWHERE")));
  EXPECT_EQ(action->FilesAffected(), 0);
}

TEST_F(DeleteFiles, ExpandsAndTrimsTheSpec) {
  Write({"a.tmp"});
  Context().SetVariable("DIR", folder.Path());
  EXPECT_TRUE(Delete("  %dir%\\a.TMP "));
  EXPECT_EQ(Lines().front(), "Deleting files : " + folder.Path() + "\\a.TMP");
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(DeleteFiles, AnswersOfTheSystemThatAreOdd) {
  const std::string here = folder.WindowsPath() + '\\';
  const struct {
    const char* name;
    SysResult answer;
    bool result;
    StringList lines;
  } cases[] = {
      {"a refusal without a code", SysResult::Failure(Win32Error::Success), true, {"0 Files Deleted."}},
      {"a success, and the file is still there",
       SysResult(),
       false,
       {" --> Error Deleting File : " + here + "a.tmp", " --> " + SystemText(Win32Error::Success),
        "0 Files Deleted."}},
  };
  Write({"a.tmp"});
  action->FailIfNoFile = false;
  for (const auto& wanted : cases) {
    fault = [&](const PlatformCall& call) {
      return call.operation == "entries.Delete" ? std::optional(wanted.answer) : std::nullopt;
    };
    EXPECT_EQ(Delete(here + "*.tmp"), wanted.result) << wanted.name;
    StringList lines = wanted.lines;
    lines.insert(lines.begin(), "Deleting files : " + here + "*.tmp");
    EXPECT_EQ(Lines(), lines) << wanted.name;
  }
}

}  // namespace
