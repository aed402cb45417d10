"""What the campaign runs: one step per row, with the disk that it finds. What it leaves is seen in a run
without faults."""

from dataclasses import dataclass

BIG = "".join(f"line {i} of a file that is larger than one piece\n" for i in range(40_000))
TEXT = "first line\nsecond TOKEN line\nthird line\n"
INI = "; kept\r\n[Main]\r\nName=old\r\nOther=1\r\n\r\n[Rest]\r\nA=b\r\n"
TREE = {"src/a.txt": TEXT, "src/b.bin": BIG, "src/sub/c.txt": "c" * 5000}
REGISTRY = ('Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Vek]\r\n"Name"="old"\r\n'
            '"Other"="kept"\r\n')
FILE_SETS = ('<FileSets><FileSet Name="All" BaseDirectory="%PROJECTDIR%/disk/src"><Include>**/*</Include></FileSet>'
             "</FileSets>")
VARIABLES = '<Variables><Variable Name="V1">one</Variable><Variable Name="V2">two</Variable></Variables>'


@dataclass
class Scenario:
    type: str
    disk: dict  # text by path; a path that ends in "/" is an empty folder
    properties: dict
    repeats: bool = True  # run again, it comes to the same end
    reads: bool = False  # changes nothing: success must tell what it tells without faults
    appends: bool = False  # killed, it may leave the beginning of what it adds
    children: str = ""

    def project(self):
        def element(name, value):
            inner = "".join(f"<Line>{v}</Line>" for v in value) if isinstance(value, tuple) else value
            return f"<{name}>{inner}</{name}>"

        properties = "".join(element(*p) for p in self.properties.items())
        children = f"<Actions>{self.children}</Actions>" if self.children else ""
        return (f'<VekProject Version="1">{VARIABLES}{FILE_SETS}<Actions><Action Type="{self.type}">'
                f"<Properties>{properties}</Properties>{children}</Action></Actions></VekProject>")


def at(path):
    return "%PROJECTDIR%/disk/" + path


SAY = '<Action Type="SCRIPTACTION"><Script Event="OnExecute">Vek.Log(Vek.GetVariable("F"))</Script></Action>'
COPY = {"FileSpec": at("src/*"), "Target": at("to"), "TargetIsDir": "True", "Force": "True", "Recurse": "True"}
OLD = {"to/a.txt": "old a", "to/b.bin": "old b"}
MIRROR = {"SourceDir": at("src"), "DestDir": at("to"), "Retries": "0", "RetryWaitSec": "0"}
VALUE = {"RegKey": "Software\\Vek", "RegValueName": "Name"}

SCENARIOS = [
    Scenario("HCREATE_DIR", {"x": "x"}, {"FileOrDirectory": at("a")}),
    Scenario("HDELETE_DIR", TREE | {"x": "x"}, {"FileOrDirectory": at("src")}, repeats=False),
    Scenario("HMOVEDIR", TREE, {"Directory": at("src"), "DestinationDirectory": at("to")}, repeats=False),
    Scenario("HDELETE_FILE", {"a.tmp": "1", "b.tmp": "2", "c": "3"}, {"FileSpec": at("*.tmp")}, repeats=False),
    Scenario("HCOPYFILES", TREE, COPY),
    Scenario("HCOPYFILES", TREE | OLD, COPY),
    Scenario("HMOVEFILES", TREE, COPY, repeats=False),
    Scenario("HMOVEFILES", TREE | OLD, COPY, repeats=False),
    Scenario("HSETFILEATTRIB", TREE, {"FileSpec": at("src/*"), "ReadOnly": "asSet", "Recurse": "True"}),
    Scenario("HWRITEINI", {"f.ini": INI}, {"IniFile": at("f.ini"), "Section": "Main", "ValueName": "Name", "NewValue": "new"}),
    Scenario("HWRITEINI", {"x": "x"}, {"IniFile": at("f.ini"), "Section": "Main", "ValueName": "Name", "NewValue": "new", "AllowCreate": "True"}),
    Scenario("HTOUCHFILES", TREE, {"FileSpec": at("src/*"), "DateTime": "2007-03-05T10:00:00", "Recurse": "True"}),
    Scenario("HCONCAT", {"a": TEXT, "b": BIG, "to": "old"}, {"SourceFile1": at("a"), "SourceFile2": at("b"), "DestinationFile": at("to"), "DestExistsAction": "AppendIfExists"}, repeats=False, appends=True),
    Scenario("HCONCAT", {"a": TEXT, "b": BIG, "to": "old"}, {"SourceFile1": at("a"), "SourceFile2": at("b"), "DestinationFile": at("to"), "DestExistsAction": "OverwriteIfExists"}),
    Scenario("HCONCAT", {"a": TEXT, "b": BIG}, {"SourceFile1": at("a"), "SourceFile2": at("b"), "DestinationFile": at("to")}, repeats=False),
    Scenario("HRENAMEFILE", {"a": TEXT}, {"RenameDir": "False", "SourceFile": at("a"), "NewDirName": "b"}, repeats=False),
    Scenario("HCREATEFILE", {"x": "x"}, {"NewFileName": at("new/f"), "FileContents": TEXT, "OverwriteExisting": "True"}),
    Scenario("HCREATEFILE", {"f": "old"}, {"NewFileName": at("f"), "FileContents": TEXT, "OverwriteExisting": "True"}),
    Scenario("WRITETOTEXTFILE", {"f": BIG}, {"FileName": at("f"), "NewContent": "added", "WriteToPosition": "toEnd"}, repeats=False),
    Scenario("WRITETOTEXTFILE", {"f": TEXT}, {"FileName": at("f"), "NewContent": "added", "WriteToPosition": "toStart"}, repeats=False),
    Scenario("WRITETOTEXTFILE", {"x": "x"}, {"FileName": at("f"), "NewContent": "added", "CreateIfNotExists": "True"}, repeats=False),
    Scenario("TEXTREPLACE", {"f": TEXT + BIG}, {"Filename": at("f"), "SearchText": "line", "ReplaceText": "LINE", "DoReplaceText": "True"}, repeats=False),
    Scenario("TEXTREPLACE", {"f": TEXT, "g": "old"}, {"Filename": at("f"), "SearchText": "line", "ReplaceText": "LINE", "DoReplaceText": "True", "NewFileName": at("g")}),
    Scenario("SAVEVARTOINI", {"f.ini": INI}, {"INIFile": at("f.ini"), "Variables": ("V1", "V2")}),
    Scenario("VEKSETREG", {"r.reg": REGISTRY}, VALUE | {"RegValue": "new"}),
    Scenario("VEKSETREG", {"r.reg": REGISTRY.replace("Name", "Else")}, VALUE | {"RegValue": "new"}),
    Scenario("VEKDELREG", {"r.reg": REGISTRY}, VALUE, repeats=False),
    Scenario("FILESETCOPY", TREE | OLD, {"FileSetName": "All", "DestinationFolder": at("to"), "RecreateHierarchy": "True", "OverwriteMode": "owOverwrite"}),
    Scenario("FILESETCOPY", TREE, {"FileSetName": "All", "DestinationFolder": at("to"), "RecreateHierarchy": "True", "Move": "True"}, repeats=False),
    Scenario("ROBOCOPYICON", TREE | OLD, MIRROR | {"IncludeSubDirs": "True"}),
    Scenario("ROBOCOPYMIRROR", TREE | OLD | {"to/extra": "x", "to/more/extra": "y"}, MIRROR),
    Scenario("ROBOCOPYMOVE", TREE | OLD, MIRROR | {"IncludeSubDirs": "True"}, repeats=False),
    Scenario("HXCOPY", TREE | OLD, {"Source": at("src"), "Destination": at("to"), "XCopyMode": "mdRecursive"}),
    Scenario("READTEXTFILE", {"f": TEXT}, {"FileName": at("f"), "VekVariable": "V", "PutContentsInVar": "True"}, reads=True),
    Scenario("HREADINI", {"f.ini": INI}, {"IniFile": at("f.ini"), "Section": "Main", "ValueName": "Name", "VariableName": "V", "DefaultValue": "none"}, reads=True),
    Scenario("LOADVARFROMINI", {"f.ini": INI.replace("Main", "VekVariables").replace("Name", "V1")}, {"INIFile": at("f.ini"), "Variables": ("V1",), "VariableTypes": ("STRING",)}, reads=True),
    Scenario("CRC32", {"f": BIG}, {"FileName": at("f"), "VekVariable": "V"}, reads=True),
    Scenario("MD5", {"f": BIG}, {"FileName": at("f"), "VekVariable": "V"}, reads=True),
    Scenario("TEXTFIND", {"f": BIG}, {"SourcePath": at("f"), "SearchString": "line", "TextFindBehaviour": "tfPutIntoVar", "PutCountIntoVar": "V"}, reads=True),
    Scenario("FILECOMPARE", {"a": BIG, "b": BIG}, {"FileA": at("a"), "FileB": at("b"), "Fail": "True", "Inverted": "True"}, reads=True),
    Scenario("HCHECKFILE", {"f": "x"}, {"FileOrDirectory": at("f"), "Variable": "V"}, reads=True),
    Scenario("VEKREADREG", {"r.reg": REGISTRY}, VALUE | {"VekVariable": "V1"}, reads=True),
    Scenario("HFILEITERATOR", TREE, {"VariableName": "F", "FileSpec": at("src/*"), "Recurse": "True"}, reads=True, children=SAY),
    Scenario("FOLDERITERATOR", TREE, {"VariableName": "F", "StartingFolder": at("."), "Recurse": "True"}, reads=True, children=SAY),
    Scenario("READTEXTFILEITERATOR", {"f": TEXT}, {"VariableName": "F", "TextFileName": at("f")}, reads=True, children=SAY),
    Scenario("INIFILEITERATOR", {"f.ini": INI}, {"IniFilename": at("f.ini"), "SectionsVar": "F"}, reads=True, children=SAY),
]
