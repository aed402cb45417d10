# The rules of check_arrows.sh. Paths are relative to the root of the repository.

BEGIN {
  # What a room may include besides itself and base. "package" stands for every room of the package that has
  # no row of its own, or, as something to include, for all of them.
  may["platform"] = ""
  may["platform/posix"] = may["platform/win32"] = "platform"
  may["coreapi"] = "platform"
  may["forms"] = "coreapi"
  may["package"] = "coreapi platform"
  may["package/fileops"] = "coreapi platform package/checksum"
  may["package/pages"] = may["package/frame"] = "coreapi forms package"
  may["host"] = "coreapi forms platform"
  may["tools"] = "platform"
  may["cli"] = "host coreapi platform platform/posix platform/win32"

  Rooms("base coreapi forms platform platform/posix platform/win32 host cli package tools")
  Rooms("package/frame package/fileops package/iterators package/textini package/process")
  Rooms("package/checksum package/interaction package/pages")

  # What of a room of the host the others may include; the rest is its inside.
  face["host/catalogue"] = "Catalogue Description Packages PropertyMeaning"
  face["host/engine"] = "ActionGroup BuildContext Engine StopControl"
  face["host/expressions"] = "Expressions VariableName Variables"
  face["host/filesets"] = "FileSets"
  face["host/log"] = "DisplayText EventQueue EventSink LogOutput Logs"
  face["host/project"] = "Project ProjectFile ProjectListing ProjectSchema ProjectVariables Quoted StepSelection VariablesFile"
  face["host/scripts"] = "ScriptEngine"
  face["host/validation"] = "ProjectCheck"
  face["host/services"] = "ConsoleDialogs OptionStore"

  # Where a library may be included.
  library["duktape.h"] = "host/scripts"
  library["pugixml.hpp"] = "host"
  library["pcre2.h"] = "coreapi"
  library["nlohmann/"] = "host cli"
  library["CLI/"] = "cli"
  library["iostream"] = "cli"
  library["immintrin.h"] = "package/checksum"
  library["fstream"] = library["filesystem"] = "platform"

  # What only some rooms may write, in code without comments and strings.
  Rule("std::(cout|cerr|clog|printf|puts|putchar)|(^|[^A-Za-z0-9_.>:])(printf|puts|putchar|vprintf) *\\(", "cli",
       "the console belongs to cli")
  Rule("(^|[^A-Za-z0-9_])(secure_getenv|getenv|chdir|_?getcwd|gettimeofday|clock_gettime|localtime(_r)?) *\\(",
       "platform", "environment, current folder and clock are reached through platform")
  Rule("std::time *\\(|current_path|(system|steady|high_resolution)_clock|[^A-Za-z0-9_.>]time\\((nullptr|NULL|0|&)",
       "platform", "environment, current folder and clock are reached through platform")
  Rule("random_device|(^|[^A-Za-z0-9_.>:])s?rand *\\(", "platform", "random numbers are reached through platform")
  Rule("(^|[^A-Za-z0-9_.>])(std::)?(fopen|freopen|tmpfile|_?wfopen|_?popen|system) *\\(", "platform",
       "files and programs are reached through platform")
  Rule("std::(jthread|thread|async|packaged_task)", "coreapi forms platform host cli tools", "the package starts no thread")
  Rule("^[A-Za-z][^(){}=]*[={] *\\(?([A-Za-z_]*(\\(\\)|::|\\.))*Register[A-Z][A-Za-z]*\\(", "",
       "nothing registers itself from a static")

  # The last one holds for tests too: they run on every system as they stand.
  Rule("^ *# *(el)?if.*(_WIN32|_WIN64|_MSC_VER|__MINGW|__CYGWIN__|__linux|__unix|__APPLE__|__ANDROID__)",
       "platform", "a backend is a whole file that CMake picks, not a conditional")
}

function Rooms(names,    name, i) {
  for (i = split(names, name, " "); i > 0; i--) isRoom[name[i]] = 1
}

function Rule(pattern, rooms, reason) {
  patterns[++rules] = pattern
  writers[rules] = rooms
  reasons[rules] = reason
}

function Report(reason) {
  printf "%s:%d: %s\n", FILENAME, FNR, reason
  breaches++
}

# The room of a path below src: "base", "package/fileops", "host/scripts".
function RoomOf(path,    part, count) {
  count = split(path, part, "/")
  if (count > 2 && (part[1] == "package" || part[1] == "platform" || part[1] == "host")) {
    return part[1] "/" part[2]
  }
  return count > 1 ? part[1] : ""
}

function Outer(name) {
  sub(/\/.*/, "", name)
  return name
}

function Listed(name, list) {
  return index(" " list " ", " " name " ")
}

# Whether a room or the room around it is in the list.
function Within(name, list) {
  return Listed(name, list) || Listed(Outer(name), list)
}

function CheckArrow(target, inner, unit,    allowed, exact) {
  if (target == room || target == "base") return
  if (inner in face && inner != room && !Listed(unit, face[inner])) Report(unit " is inside " inner)
  if (Outer(room) == "host" && target == "host") return
  allowed = room in may ? may[room] : may[Outer(room)]
  # The interfaces of platform do not stand for its backends, nor the package for its top.
  exact = target ~ /^platform\// || target == "package/frame"
  if (!(exact ? Listed(target, allowed) : Within(target, allowed))) Report(room " must not include " target)
}

function CheckLibrary(path,    name) {
  for (name in library) {
    if (path != name && !(name ~ /\/$/ && index(path, name) == 1)) continue
    if (!Within(room, library[name])) Report("<" path "> is for " library[name] " only")
    return 1
  }
  return 0
}

function CheckInclude(line,    quoted, path, target, inner, unit) {
  quoted = line ~ /include[ \t]*"/
  if (line !~ /include[ \t]*["<]/) return Report("an include names its file")
  if (!match(line, quoted ? "\"[^\"]+\"" : "<[^>]+>")) return
  path = substr(line, RSTART + 1, RLENGTH - 2)
  if (CheckLibrary(path)) return
  if (!quoted) {
    # The language's own headers carry no extension; the others belong to an operating system.
    if (path ~ /\.(h|hpp)$/ && room !~ /^platform\//) Report("<" path "> belongs to an operating system")
    if (tolower(path) == "windows.h" && room == "platform/posix") Report("<" path "> is for platform/win32 only")
    return
  }
  if (path ~ /^vek[a-z]+_export\.h$/) return  # made by CMake
  target = RoomOf(path)
  if (Outer(room) == "package" && ("package/" target) in isRoom) target = "package/" target
  inner = target
  unit = path
  sub(/.*\//, "", unit)
  sub(/\.[a-z]+$/, "", unit)
  if (Outer(target) == "host") target = "host"
  if (target in isRoom) CheckArrow(target, inner, unit)
  else Report("\"" path "\" starts neither at src nor at src/package")
}

# The line without comments and without what its strings hold.
function Code(line,    at) {
  if (inComment) {
    if (!(at = index(line, "*/"))) return ""
    line = substr(line, at + 2)
    inComment = 0
  }
  gsub(/\\./, "", line)
  gsub(/'"'/, "", line)
  gsub(/"[^"]*"/, "", line)
  sub(/\/\/.*/, "", line)
  gsub(/\/\*[^*]*\*\//, "", line)
  if (at = index(line, "/*")) {
    line = substr(line, 1, at - 1)
    inComment = 1
  }
  return line
}

FNR == 1 {
  isTest = FILENAME ~ /^tests\//
  room = isTest ? "tests" : RoomOf(substr(FILENAME, 5))
  inComment = 0
  held = ""
}

# A directive may go on in the next line.
/\\$/ && (held != "" || /^[ \t]*#/) {
  held = held substr($0, 1, length($0) - 1)
  next
}

!inComment && (held $0) ~ /^[ \t]*#[ \t]*(include|include_next|import)([^A-Za-z0-9_]|$)/ {
  if (!isTest) CheckInclude(held $0)
  held = ""
  next
}

{
  text = Code(held $0)
  held = ""
  for (i = isTest ? rules : 1; i <= rules; i++) {
    if (text ~ patterns[i] && !Within(room, writers[i])) Report(reasons[i])
  }
}

END { exit breaches > 0 }
