#include <algorithm>
#include <limits>
#include <map>

#include "gtest/gtest.h"

#include "frame/Vekfilereg.h"
#include "platform/Environment.h"
#include "platform/Registry.h"
#include "support/OsFixture.h"
#include "support/ProjectFixture.h"
#include "support/RunTable.h"
#include "support/ScriptedServices.h"
#include "support/TestChild.h"

// Every type, with every call of the platform failing in turn. A new type joins by a line.

namespace {

/// A step that succeeds, and what it makes of calls that fail. Its files have different texts, so that each
/// can be looked for.
struct FaultRow {
  const char* typeId;
  std::string set;     // see RunCase
  std::string before;  // likewise
  // Calls whose failure is told and yet no failure of the step. A call whose failure shows in the next one
  // need not be told when it fails alone: who searches a folder twice tells what the second search meets.
  const char* told = "";
  const char* untold = "";
};

void PrintTo(const FaultRow& row, std::ostream* stream) { *stream << row.typeId; }

// clang-format off
const FaultRow kRows[] = {
    {"HDELETE_FILE", "FileSpec=%D%\\*.tmp|DeleteReadOnly=True", "a.tmp=A !b.tmp=B c=C"},
    {"HCOPYFILES", "FileSpec=%D%\\in\\*|Target=%D%\\out|Recurse=True|Force=True|OverwriteReadOnly=True|ClearAttributes=True",
     "in/a=A !in/b=B in/sub/c=C out/a=old !out/b=older", "finder.Open folders.CreateWithParents entries.Copy entries.SetAttributes", "finder.Open"},
    {"HMOVEFILES", "FileSpec=%D%\\in\\*|Target=%D%\\out|Force=True|OverwriteReadOnly=True|ClearAttributes=True|StopOnAnyErrors=True",
     "in/a=A !in/b=B in/c=C out/a=old !out/b=older", "finder.Open entries.GetAttributes entries.SetAttributes", "entries.GetAttributes entries.SetAttributes"},
    {"HMOVEFILES", "FileSpec=%D%\\in\\*|Target=%D%\\out", "in/a=A in/b=B out/a=old", "finder.Open entries.CheckReplace entries.GetAttributes entries.SetAttributes entries.Move"},
    {"HFILEITERATOR", "FileSpec=%D%\\*|Recurse=True|VariableName=F", "a=A sub/b=B sub/deep/c=C", "finder.Open", "finder.Open"},
    {"HFILEITERATOR", "UseFileSet=True|FileSetName=Set|FileSetRefreshAfterEach=True|VariableName=F", "in/a=A in/sub/b=B", "finder.Open", "finder.Open"},
    {"FOLDERITERATOR", "StartingFolder=%D%|Recurse=True|VariableName=F", "one/a=A two/three/b=B", "finder.Open"},
    {"HREADINI", "IniFile=%D%\\a.ini|Section=s|ValueName=k|VariableName=V|DefaultValue=d", "a.ini=[s]\nk=v\n"},
    {"HWRITEINI", "IniFile=%D%\\a.ini|Section=s|ValueName=k|NewValue=new", "a.ini=[s]\nk=v\n", "entries.GetAttributes iniFiles.Write"},
    {"HWRITEINI", "IniFile=%D%\\new.ini|Section=s|ValueName=k|NewValue=new|AllowCreate=True", "a=A"},
    {"HCREATEFILE", "NewFileName=%D%\\new\\a|FileContents=A", "b=B"},
    {"HCREATEFILE", "NewFileName=%D%\\a|FileContents=A|OverwriteExisting=True", "a=old"},
    {"WRITETOTEXTFILE", "FileName=%D%\\a|NewContent=more", "a=A\n"},
    {"INIFILEITERATOR", "IniFilename=%D%\\a.ini|SectionsVar=S", "a.ini=[s]\nk=v\n"},
    {"INIFILEITERATOR", "IniFilename=%D%\\a.ini|IteratorMode=iiValues|SectionName=s|ValueVariable=V", "a.ini=[s]\nk=v\n"},
    {"SAVEVARTOINI", "INIFile=%D%\\a.ini|SectionName=s|Variables+=D|EraseSection=True", "a.ini=[s]\nk=v\n"},
    {"LOADVARFROMINI", "INIFile=%D%\\a.ini|SectionName=s|Variables+=N|Variables+=NEW|VariableTypes+=STRING|VariableTypes+=STRING|CreateVarInINIifNotExists=True|FailIfVariableNotInIniFile=False", "a.ini=[s]\nN=v\n"},
    {"READTEXTFILE", "FileName=%D%\\a|VekVariable=V|PutContentsInVar=True", "a=A\n"},
    {"READTEXTFILEITERATOR", "TextFileName=%D%\\a|VariableName=L", "a=A\n"},
    {"TEXTREPLACE", "Filename=%D%\\a|SearchText=A|ReplaceText=B", "a=A\n"},
    {"TEXTREPLACE", "Filename=%D%\\a|NewFileName=%D%\\b|SearchText=A|ReplaceText=B|MatchRegularExpression=True", "a=A\n b=old"},
    {"TEXTFIND", "SourcePath=%D%\\a|SearchString=A", "a=A\n"},
    {"HCONCAT", "SourceFile1=%D%\\a|SourceFile2=%D%\\b|DestinationFile=%D%\\old|DestExistsAction=AppendIfExists", "a=A b=B old=old"},
    {"HCONCAT", "SourceFile1=%D%\\a|SourceFile2=%D%\\b|DestinationFile=%D%\\old|DestExistsAction=OverwriteIfExists", "a=A b=B old=old"},
    {"CRC32", "FileName=%D%\\a|VekVariable=V", "a=A"},
    {"MD5", "FileName=%D%\\a|VekVariable=V", "a=A"},
    {"FILECOMPARE", "FileA=%D%\\a|FileB=%D%\\b|CompareSize=True|CompareMD5=True", "a=A b=A"},
    {"HCREATE_DIR", "FileOrDirectory=%D%\\new", "a=A"},
    {"HDELETE_DIR", "FileOrDirectory=%D%\\one|DeleteTree=True|DeleteReadOnly=True|LogDeletedFiles=True", "one/a=A !one/b=B one/sub/c=C d=D"},
    {"HMOVEDIR", "Directory=%D%\\one|DestinationDirectory=%D%\\two", "one/a=A one/sub/b=B"},
    {"HRENAMEFILE", "RenameDir=True|SourceDirectory=%D%\\one|NewDirName=two", "one/a=A"},
    {"HRENAMEFILE", "RenameDir=False|SourceFile=%D%\\a|NewDirName=b", "a=A"},
    {"HTOUCHFILES", "FileSpec=%D%\\*|TouchReadOnly=True|Recurse=True|UseNow=True", "a=A !b=B sub/c=C", "finder.Open entries.ChangeLastWrite entries.GetAttributes entries.SetAttributes", "finder.Open"},
    {"HSETFILEATTRIB", "FileSpec=%D%\\*|ReadOnly=asSet|Recurse=True", "a=A sub/b=B", "finder.Open entries.SetAttributes entries.GetAttributes", "finder.Open"},
    {"HDISKSPACE", "Drive=%D%|FreeSpaceVar=V", "a=A"},
    {"HDATETIME", "DateTimeSource=dsFile|FileName=%D%\\a|VekVariable=V", "a=A"},
    {"EXTRACTFILEINFO", "FileName=%D%\\a|FileVersionVar=V|FailIfNotFound=False", "a=A"},
    {"VEKREADREG", "RegRoot=2147483649|RegKey=%K%|RegValueName=v|VekVariable=V", "a=A"},
    {"VEKSETREG", "RegRoot=2147483649|RegKey=%K%|RegValueName=v|RegValue=new", "a=A"},
    {"VEKSETREG", "RegRoot=2147483649|RegKey=%K%\\sub|RegValueName=v|RegValue=new|AllowCreateKey=True", "a=A"},
    {"VEKDELREG", "RegRoot=2147483649|RegKey=%K%|RegValueName=v", "a=A"},
    {"HEXECUTEPROG", "ProgramName=" + TestChild() + "|Params=exit 0", "a=A"},
    {"HRUNDOS", "Command=exit 0", "a=A"},
    {"FILESETCOPY", "FileSetName=Set|DestinationFolder=%D%\\out|RecreateHierarchy=True|OverwriteMode=owReadOnly|ClearAttributes=True|RefreshBefore=True",
     "in/a=A !in/sub/b=B !out/a=old", "finder.Open", "finder.Open folders.CreateWithParents"},
    {"FILESETCOPY", "FileSetName=Set|DestinationFolder=%D%\\out|Move=True|OverwriteMode=owOverwrite", "in/a=A in/b=B out/a=old", "finder.Open", "finder.Open"},
};
// clang-format on

/// Types without calls that can fail, and those that start what not every machine has.
constexpr std::string_view kWithout[] = {
    "SCRIPTACTION",  "LISTITERATOR",   "LOGVARIABLEVALS",    "HCHECKFILE",   "HASKQUESTION",
    "HPROMPTFORVAR", "HMULTIQUESTION", "PROMPTFORDIRORFILE", "BEEP",         "HIFCOMREG",
    "HXCOPY",        "ROBOCOPYICON",   "ROBOCOPYJOB",        "ROBOCOPYMOVE", "ROBOCOPYMIRROR",
    "HSHELLEXECUTE", "CLOSEPROCESS",
};

/// What became of a run; the disk as a DiskTable tells it, with the test's own folder left out of it.
struct Outcome {
  bool result = false;
  StringList log;  // messages and errors
  StringList disk;
  StringList operations, names;  // of the calls that failed
};

struct Calls {
  size_t first, last;
};
constexpr size_t kNever = std::numeric_limits<size_t>::max();
constexpr Win32Error kFailure = Win32Error::WriteProtect;

/// One run of a line: a new disk, a registry key with the value "v", and the calls that are to fail.
class FaultRun : public ProjectFixture {
 public:
  explicit FaultRun(const FaultRow& row) {
    VekRegister(false);
    Context().SetVariable("D", folder.WindowsPath());
    Context().SetVariable("K", key_);
    Context().SetVariable("DOSCMD", GetPlatform().environment->CommandInterpreter());
    for (const char* name : {"N", "NEW", "V"}) Context().SetVariable(name, std::string("n"));
    disk_.Write(SplitAt(row.before, " "));
    if (row.set.find("%K%") != std::string::npos) MakeKey();
    project.fileSets = {{.name = "Set", .baseDirectory = "%D%\\in", .includes = {"**\\*"}, .excludes = {}}};
    ActionNode& node = project.actions.emplace_back();
    node.typeId = row.typeId;
    node.action = services_.catalogue.Find(row.typeId)->actionClass->create(Context());
    SetProperties(*node.action, row.set);
  }
  ~FaultRun() { RemoveRegistryKey(key_); }

  StringList Disk() const { return Neutral(disk_.Read()); }

  Outcome Perform(Calls failing) {
    Outcome outcome;
    Environment& environment = *GetPlatform().environment;
    const std::string currentFolder = environment.CurrentFolder();  // which Delete Directory changes
    fault = [&, calls = size_t{0}](const PlatformCall& call) mutable -> std::optional<SysResult> {
      if (call.isQuestion || ++calls < failing.first || calls > failing.last) return {};
      outcome.operations.emplace_back(call.operation);
      outcome.names.emplace_back(NamePart(call.path));
      return SysResult::Failure(kFailure);
    };
    outcome.result = RunAll().result == ActionResult::Success;
    fault = {};
    environment.SetCurrentFolder(currentFolder);
    outcome.log = Neutral(Lines());
    const StringList errors = Neutral(Errors());
    outcome.log.insert(outcome.log.end(), errors.begin(), errors.end());
    outcome.disk = Disk();
    return outcome;
  }

 private:
  void MakeKey() {
    std::unique_ptr<RegistryKey> key;
    ASSERT_TRUE(GetPlatform().registry->Open(RegistryRoot::CurrentUser, key_, RegistryAccess::All,
                                             RegistryOpen::CreateMissing, key));
    ASSERT_TRUE(key->Write("v", {RegistryType::String, "old"}));
  }

  /// Without the name that each run's folder has for itself.
  StringList Neutral(StringList lines) const {
    const std::string own(NamePart(folder.Path()));
    for (std::string& line : lines) {
      line = ReplaceAll(ReplaceAll(line, folder.WindowsPath(), "%D%"), folder.Path(), "%D%");
      line = ReplaceAll(line, own, "own");
    }
    return lines;
  }

  ScriptedServices services_;
  const DiskTable disk_{folder, GetPlatform()};
  const std::string key_ = "Software\\VekTest-" + std::string(NamePart(folder.Path()));
};

bool IsListed(std::string_view list, const StringList& operations) {
  const StringList listed = SplitAt(list, " ");
  return std::ranges::all_of(operations, [&](const std::string& operation) {
    return std::ranges::find(listed, operation) != listed.end();
  });
}

bool AnyHolds(const StringList& lines, std::string_view text) {
  return !text.empty() && std::ranges::any_of(lines, [&](const std::string& line) {
    return line.find(text) != std::string::npos;
  });
}

/// The lines that the run has and another has not.
StringList Beyond(const StringList& lines, const StringList& others) {
  StringList beyond;
  std::ranges::copy_if(lines, std::back_inserter(beyond), [&](const std::string& line) {
    return std::ranges::find(others, line) == others.end();
  });
  return beyond;
}

/// What the files hold by name.
std::map<std::string, std::string> Files(const StringList& disk) {
  std::map<std::string, std::string> files;
  for (const std::string& line : disk) {
    const size_t mark = line.find('=');
    if (line.starts_with("registry.reg")) continue;  // the registry's own
    if (mark != std::string::npos)
      files[line.substr(line[0] == '!', mark - (line[0] == '!'))] = line.substr(mark);
  }
  return files;
}

/// Each file holds what it held or what it was to get, and what was to stay stays, where it was or elsewhere.
/// A file that nobody asked for is told of.
void ExpectNothingLost(const StringList& before, const Outcome& good, const Outcome& faulty) {
  const auto were = Files(before), wanted = Files(good.disk), are = Files(faulty.disk);
  const auto holds = [](const auto& files, const std::string& text) {
    return std::ranges::any_of(files, [&](const auto& file) { return file.second == text; });
  };
  for (const auto& [name, text] : are) {
    const auto was = were.find(name), shall = wanted.find(name);
    const bool isExpected =
        (was != were.end() && was->second == text) || (shall != wanted.end() && shall->second == text);
    EXPECT_TRUE(isExpected || AnyHolds(faulty.log, NamePart(name))) << name << " holds " << text;
  }
  for (const auto& [name, text] : were) {
    EXPECT_TRUE(holds(are, text) || !holds(wanted, text)) << name << " is lost";
    EXPECT_TRUE(are.contains(name) || !wanted.contains(name) || holds(are, text)) << name << " is gone";
  }
}

/// A failure fails the step and is told, with what failed or the system's word for it. One that makes no
/// difference need not be.
void ExpectTold(const FaultRow& row, const Outcome& good, const Outcome& faulty) {
  const bool makesNoDifference =
      faulty.result == good.result && faulty.disk == good.disk && faulty.log == good.log;
  if (makesNoDifference || (faulty.operations.size() == 1 && IsListed(row.untold, faulty.operations))) return;
  EXPECT_TRUE(!faulty.result || IsListed(row.told, faulty.operations)) << "the step succeeds";
  const StringList told = Beyond(faulty.log, good.log);
  EXPECT_TRUE(AnyHolds(told, SystemText(kFailure)) || AnyHolds(told, faulty.names.front()))
      << "nothing is told";
}

struct FaultWalk : testing::TestWithParam<FaultRow> {};

TEST_P(FaultWalk, TellsWhatFailedAndLosesNothing) {
  FaultRun undisturbed(GetParam());
  const StringList before = undisturbed.Disk();
  const Outcome good = undisturbed.Perform({kNever, kNever});
  ASSERT_TRUE(good.result) << testing::PrintToString(good.log);
  size_t first = 0;
  for (bool goesOn = true; goesOn;) {
    ++first;
    for (const size_t last : {first, kNever}) {  // one call fails; from it on all do
      const Outcome faulty = FaultRun(GetParam()).Perform({first, last});
      goesOn = !faulty.operations.empty();
      if (!goesOn) break;
      SCOPED_TRACE(testing::Message() << "call " << first << (last == first ? "" : " and all after it")
                                      << ": " << testing::PrintToString(faulty.operations) << '\n'
                                      << testing::PrintToString(faulty.log) << '\n'
                                      << testing::PrintToString(faulty.disk));
      ExpectNothingLost(before, good, faulty);
      ExpectTold(GetParam(), good, faulty);
    }
  }
  EXPECT_GT(first, 1u) << "no call was made";
}

INSTANTIATE_TEST_SUITE_P(Types, FaultWalk, testing::ValuesIn(kRows), [](const auto& info) {
  return std::string(info.param.typeId) + '_' + std::to_string(info.index);
});

TEST(Faults, EveryTypeHasALine) {
  ScriptedServices services;
  VekRegister(false);
  for (const CatalogueEntry& entry : services.catalogue.Entries()) {
    const bool hasLine = std::ranges::find(kWithout, entry.typeId) != std::end(kWithout) ||
                         std::ranges::find(kRows, entry.typeId, &FaultRow::typeId) != std::end(kRows);
    EXPECT_TRUE(hasLine) << entry.typeId;
  }
}

}  // namespace
