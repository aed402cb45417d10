#!/usr/bin/env bash
# Fails when the README shows something else than what the tour says, folders and times aside.
# usage: check_readme.sh BINFOLDER
set -euo pipefail

vekrun=$(cd "$1" && pwd)/vekrun
cd "$(dirname "${BASH_SOURCE[0]}")/.."
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT

said() { sed -E 's/[0-9.]+ s$/N s/'; }
shown=$(sed -n '/<!-- output -->/,/<!-- \/output -->/p' README.md | sed '/^<!--/d; /^```/d; 1{/^$/d}' | said)
diff <(echo "$shown" | sed '/./,$!d') \
  <("$vekrun" run examples/tour.vekproj -D "OUT=$out" | sed "s|$out|/home/ada/vek/examples/out/tour|" | said)
