#include "support/RunTable.h"
#include "textini/VekLogVariableValues.h"
#include "textini/VekVariablesSaveLoadAction.h"

namespace {

const std::string kSave =
    "$FILE=f.ini|$SECTION=S|$TEXT=a=b|$COUNT:Integer=-3|$FLAG:Boolean=True|INIFile=%D%\\%FILE%|SectionName=%"
    "SECTION%|";
const std::string kAll = kSave + "Variables+=Text|Variables+=COUNT|Variables+=FLAG|EraseSection=";
const std::string kBefore = "f.ini=[S]\nold=1\ncount=2\n[T]\nx=1\n", kSaved = "Variables saved to %D%\\f.ini";
const std::string kOld = "f.ini=[S]\nTEXT=old\n";

// clang-format off
const RunCase kSaves[] = {
    {"IntoASectionOfItsOwn", kAll + "True", kBefore, true, kSaved, "f.ini=[T]\nx=1\n[S]\nText=a=b\nCOUNT=-3\nFLAG=True\n"},
    {"IntoASection", kAll + "False", kBefore, true, kSaved, "f.ini=[S]\nold=1\ncount=-3\nText=a=b\nFLAG=True\n[T]\nx=1\n"},
    {"AnUnknownVariable", kSave + "Variables+=TEXT|Variables+=X", kOld, false, "Error expanding variable: " + kUnknownX, kOld},
    {"NoFolder", kSave + "Variables+=TEXT|INIFile=%D%\\no\\f.ini", kOld, false, "Error Opening Ini File : %D%\\no\\f.ini: {3}", kOld},
};

const std::string kLoad = "INIFile=%D%\\f.ini|", kLoaded = "Variables loaded from %D%\\f.ini";

/// What a variable becomes that stands in the file.
RunCase Loads(const std::string& before, const std::string& type, const std::string& entry, const std::string& wanted) {
  const std::string file = "f.ini=[VekVariables]\nv=" + entry + "\nV=second\n";
  return {"loads", "$V" + before + '|' + kLoad + "Variables+=V|VariableTypes+=" + type, file, true, kLoaded, file, "$V=" + wanted};
}

const std::string kAB = "$A=old|$B=old|" + kLoad, kA = "f.ini=[VekVariables]\nA=new\n";
const std::string kNew = "$A=String new|$B=String old", kKept = "$A=String old|$B=String old";
const std::string kLenient = "FailIfVariableNotInIniFile=False|", kCreate = "CreateVarInINIifNotExists=True|" + kLenient;
const std::string kABC = "$A=of A|$B=of B|$C=of C|" + kLoad + kCreate + "Variables+=A|Variables+=B|Variables+=b|Variables+=C|"
                         "VariableTypes+=STRING|VariableTypes+=STRING|VariableTypes+=BOOLEAN|VariableTypes+=STRING|";
const std::string kNoFile = "File %D%\\f.ini does not exist.", kCreated = "|Variable not found in INI, created: ";

const RunCase kLoads[] = {
    Loads("=x", "STRING", "\"~1~\"", "String  1 "),
    Loads("=x", "string", "", "String "),
    Loads(":Integer=7", "String", "8", "String 8"),
    Loads(":Integer=7", "integer", "0x10", "Integer 16"),
    Loads(":Integer=7", "INTEGER", "-2147483648", "Integer -2147483648"),
    Loads(":Integer=7", "INTEGER", "2147483648", "Integer 7"),
    Loads(":Integer=7", "INTEGER", "", "Integer 7"),
    Loads("=x", "INTEGER", "maybe", "Integer 0"),
    Loads(":Boolean=True", "Boolean", "FALSE", "Boolean False"),
    Loads(":Boolean=True", "BOOLEAN", "maybe", "Boolean True"),
    Loads("=1", "BOOLEAN", "maybe", "Boolean True"),
    Loads("=x", "BOOLEAN", "maybe", "Boolean False"),
    Loads(":Boolean=False", "BOOLEAN", "-1", "Boolean True"),
    {"AnUndefinedVariable", kAB + "Variables+=A|Variables+=UNDEFINED|VariableTypes+=STRING", kA, false, "Variable not defined: UNDEFINED", kA, kNew},
    {"WhichMayBe", kAB + "FailIfVariableNotDefined=False|Variables+=UNDEFINED|Variables+=A|VariableTypes+=|VariableTypes+=STRING", kA, true,
     "Variable not defined: UNDEFINED|" + kLoaded, kA, kNew},
    {"AMissingEntry", kAB + "CreateVarInINIifNotExists=True|Variables+=A|Variables+=B|VariableTypes+=STRING", kA, false,
     "Variable not found in INI: B", kA, kNew},
    {"WhichMayBeMissing", kAB + kLenient + "Variables+=B|Variables+=A|VariableTypes+=|VariableTypes+=STRING", kA, true,
     "Variable not found in INI: B|" + kLoaded, kA, kNew},
    {"NoType", kAB + "Variables+=A|Variables+=A|VariableTypes+=STRING", kA, false, "Error setting variable A", kA, kNew,
     "no type is given for variable \"A\""},
    {"AnUnknownType", kAB + "Variables+=A|VariableTypes+=Text", kA, false, "Invalid value for variable type: Text", kA, kKept},
    {"NoFile", kABC, "", false, kNoFile, ""},
    // The second turn of B finds the entry.
    {"MissingEntriesAreCreated", kABC + "IgnoreFileNotFound=True", "", true,
     kNoFile + kCreated + "A" + kCreated + "B" + kCreated + "C|" + kLoaded, "f.ini=[VekVariables]\r\nA=of~A\r\nB=of~B\r\nC=of~C\r\n", "$B=Boolean False"},
    {"NotInAReadOnlyFile", kABC, "!f.ini=[VekVariables]\nB=1\n", false, "Error setting variable A", "!f.ini=[VekVariables]\nB=1\n", "", "{5}"},
    {"Held", kLoad, "^f.ini=", false, "Error Opening Ini File : %D%\\f.ini: {32}", "f.ini="},
};

const std::string kLog = "$A:Integer=1|$NAME=A|VariablesToLog+=A|VariablesToLog+=|VariablesToLog+=%NAME%|VariablesToLog+=none|VariablesToLog+=NAME";
const std::string kLogged = "Current variable values : |A = 1|A = 1|Variable none not defined.";

const RunCase kLogs[] = {
    {"UpToTheUndefined", kLog, "", false, kLogged, ""},
    {"AllThatAreDefined", kLog + "|FailIfNotDefined=False", "", true, kLogged + "|NAME = A", ""},
    {"AnUnknownName", "FailIfNotDefined=False|VariablesToLog+=%X%", "", false, "Current variable values : ", "", "", "Variable to Log: " + kUnknownX},
};
// clang-format on

TEST(Variables, Saving) { ExpectRuns<TVekVariablesSaveAction>(kSaves); }
TEST(Variables, Loading) { ExpectRuns<TVekVariablesLoadAction>(kLoads); }
TEST(Variables, Logging) { ExpectRuns<TVekLogVariablesAction>(kLogs); }

TEST(Variables, TheListToLogIsStoredAsOneText) {
  ActionFixture fixture;
  const auto action = fixture.Make<TVekLogVariablesAction>();
  action->SetVariableStorageString("A\r\n\r\n%NAME%\nnone\n");
  EXPECT_EQ(action->VariablesToLog, (StringList{"A", "", "%NAME%", "none"}));
  EXPECT_EQ(action->VariableStorageString(), "A\r\n\r\n%NAME%\r\nnone\r\n");
}

}  // namespace
