#!/usr/bin/env bash
# Measures vekrun beside other tools in the same run; called by ./vek bench.
# usage: run.sh BINFOLDER [ROUNDS]
set -euo pipefail

bin=$(cd "$1" && pwd)
rounds=${2:-10}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d "$bin/../bench.XXXXXX")
trap 'rm -rf "$work"' EXIT

if command -v ant >/dev/null; then
  with_ant() { printf '%s\n' -- ant ant -q -S -f "$@"; }
else
  echo "ant is not installed: its rows are left out (apt-get install ant)"
  with_ant() { :; }
fi

cat >"$work/empty.vekproj" <<'XML'
<?xml version="1.0" encoding="UTF-8"?>
<VekProject Version="1"/>
XML
echo '<project default="all"><target name="all"/></project>' >"$work/empty.xml"
echo 'all: ;' >"$work/empty.mk"
cat >"$work/delete.xml" <<'XML'
<project default="all">
  <target name="all"><delete><fileset dir="${folder}" includes="*.txt"/></delete></target>
</project>
XML

echo "Start-up, an empty project:"
mapfile -t ant < <(with_ant "$work/empty.xml")
"$bin/vek_stopwatch" $((rounds * 5)) \
  -- vekrun "$bin/vekrun" run -q "$work/empty.vekproj" \
  -- make make -f "$work/empty.mk" \
  "${ant[@]}"

echo "Deleting 20,000 empty files:"
mapfile -t ant < <(with_ant "$work/delete.xml" "-Dfolder=$work/files{}")
"$bin/vek_stopwatch" "$rounds" --prepare "$here/make_files.sh" "$work/files{}" 20000 \
  -- vekrun "$bin/vekrun" exec -q HDELETE_FILE "FileSpec=$work/files{}/*.txt" \
  -- 'rm -rf' rm -rf "$work/files{}" \
  "${ant[@]}"
