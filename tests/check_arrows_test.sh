#!/usr/bin/env bash
# Sample breaches in a temporary tree must be found, and nothing beside them.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# expect WANTED FILE CODE: a tree that holds only this line gives a reason with WANTED in it, or, when WANTED
# is empty, nothing.
expect() {
  local wanted=$1 file=$2 code=$3 got rc=0
  rm -rf "${tree:?}"/*
  mkdir -p "$tree/src" "$tree/tests" "$tree/$(dirname "$file")"
  printf '// a line before\n%s\n' "$code" >"$tree/$file"
  got=$("$here/check_arrows.sh" "$tree" 2>&1) || rc=$?
  if [[ $wanted ]]; then
    [[ $rc == 1 && $got == "$file:2: "*"$wanted"* && $got != *$'\n'* ]] && return
  else
    [[ $rc == 0 && -z $got ]] && return
  fi
  printf 'FAILED: %s in %s\n  wanted: %s\n  got %s: %s\n' "$code" "$file" "${wanted:-nothing}" "$rc" "$got"
  failures=$((failures + 1))
}

# Who includes whom.
expect 'base must not include coreapi' src/base/Text.cpp '#include "coreapi/Vekvariant.h"'
expect 'platform must not include coreapi' src/platform/Files.h '#include "coreapi/Vekvariant.h"'
expect 'coreapi must not include host' src/coreapi/A.cpp '#include "host/log/Logs.h"'
expect 'coreapi must not include platform/posix' src/coreapi/A.cpp '#include "platform/posix/Errno.h"'
expect 'forms must not include platform' src/forms/A.cpp '#include "platform/Files.h"'
expect 'package/fileops must not include package/textini' src/package/fileops/A.cpp '#include "textini/B.h"'
expect 'package/fileops must not include forms' src/package/fileops/A.cpp '#include "forms/Vekpluginapi.h"'
expect 'package/pages must not include package/frame' src/package/pages/A.cpp '#include "frame/Vekfilereg.h"'
expect 'package/textini must not include host' src/package/textini/A.cpp '#  include "host/log/Logs.h"'
expect 'host must not include package/fileops' src/host/A.cpp '#include "package/fileops/B.h"'
expect 'host/scripts must not include cli' src/host/scripts/A.cpp '#include "cli/Run.h"'
expect 'host must not include platform/posix' src/host/A.cpp '#include "platform/posix/Errno.h"'
expect 'platform/posix must not include platform/win32' src/platform/posix/A.cpp '#include "platform/win32/B.h"'
expect 'cli must not include forms' src/cli/main.cpp '#include "forms/Vekpluginapi.h"'
expect 'starts neither' src/base/Text.cpp '#include "Text.h"'
expect '' src/package/fileops/A.cpp '#include "checksum/Md5.h"'
expect '' src/package/textini/A.cpp '#include "platform/Files.h"'
expect '' src/package/pages/A.cpp '#include "fileops/B.h"'
expect '' src/package/frame/A.cpp '#include "pages/B.h"'
expect '' src/host/log/A.cpp '#include "host/scripts/ScriptEngine.h"'
expect 'Border is inside host/scripts' src/host/log/A.cpp '#include "host/scripts/Border.h"'
expect 'package/pages must not include platform' src/package/pages/A.cpp '#include "platform/Clock.h"'
expect 'names its file' src/host/A.cpp '#include VEK_HEADER'
expect '' src/cli/main.cpp '#include "platform/CreatePlatform.h"'
expect '' src/base/Text.h '#include "vekcoreapi_export.h"'
expect '' tests/host/A.cpp '#include "platform/posix/Errno.h"'

# Libraries and the operating system.
expect 'belongs to an operating system' src/host/A.cpp '#include <unistd.h>'
expect 'belongs to an operating system' src/cli/main.cpp '#include <sys/stat.h>'
expect 'for platform/win32 only' src/platform/posix/A.cpp '#include <Windows.h>'
expect 'for host/scripts only' src/host/A.cpp '#include <duktape.h>'
expect 'for host only' src/package/fileops/A.cpp '#include <pugixml.hpp>'
expect 'for host cli only' src/coreapi/A.cpp '#include <nlohmann/json.hpp>'
expect 'for platform only' src/host/A.cpp '#include <filesystem>'
expect 'for package/checksum only' src/package/fileops/A.cpp '#include <immintrin.h>'
expect '' src/platform/posix/A.cpp '#include <sys/stat.h>'
expect '' src/platform/win32/A.cpp '#include <windows.h>'
expect '' src/host/scripts/A.cpp '#include "duktape.h"'
expect '' src/base/Text.h '#include <string>'

# Words.
expect 'console' src/host/A.cpp '  std::cout << "x";'
expect 'through platform' src/coreapi/A.cpp 'auto value = std::getenv("X");'
expect 'through platform' src/package/fileops/A.cpp 'auto now = std::time(nullptr);'
expect 'through platform' src/host/A.cpp 'auto now = std::chrono::system_clock::now();'
expect 'through platform' src/host/A.cpp 'if (chdir("/") != 0) return;'
expect 'through platform' src/host/A.cpp 'auto now = std::chrono::steady_clock::now();'
expect 'through platform' src/coreapi/A.cpp '  std::random_device random;'
expect 'through platform' src/package/fileops/A.cpp '  FILE* file = fopen(name, "r");'
expect 'through platform' src/host/A.cpp '  if (std::system(command) != 0) return;'
expect 'console' src/host/A.cpp '  puts("x");'
expect 'no thread' src/package/fileops/A.cpp '  std::jthread worker(run);'
expect 'from a static' src/package/fileops/A.cpp 'const bool kDone = VekActionServices().RegisterAction("", "", kClass, "");'
expect '' src/package/frame/A.cpp 'void RegisterIt() { RegisterEditors(kEditors); }'
expect '' src/host/A.cpp '  files.system(1); std::snprintf(text, 2, "x");'
expect 'not a conditional' src/base/Text.cpp '#ifdef _WIN32'
expect 'not a conditional' src/cli/main.cpp '#if defined(__linux__) && X'
expect 'not a conditional' tests/e2e/A.cpp '#ifndef _WIN32'
# A breach in a continued line is told where the line ends.
expect_continued() {
  mkdir -p "$tree/src/base"
  rm -rf "${tree:?}"/src/* && mkdir -p "$tree/src/base"
  printf '#if defined(A) || \\\n    defined(_WIN32)\n#endif\n' >"$tree/src/base/A.cpp"
  [[ $("$here/check_arrows.sh" "$tree" 2>&1) == 'src/base/A.cpp:2: '*'not a conditional'* ]] && return
  echo "FAILED: a continued conditional" && failures=$((failures + 1))
}
expect_continued
expect 'belongs to an operating system' src/host/A.hpp '#include <unistd.h>'
expect '' src/platform/posix/A.cpp 'auto value = getenv("X");'
expect '' src/cli/main.cpp '  std::cout << "x";'
expect '' src/host/A.cpp 'double seconds = clock.time(0);'
expect '' src/host/A.cpp 'Say("std::cout"); /* getenv( */ // chdir('
expect '' src/host/A.cpp $'/* a comment\n#include <unistd.h>\n getenv("X") */'

((failures == 0)) && echo "all samples as wanted"
