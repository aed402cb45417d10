#!/usr/bin/env bash
# Writes docs/actions/, one page per action type, from what the package says of itself.
# usage: generate.sh BINFOLDER [--check]   (--check: change nothing, fail when a page is out of date)
set -euo pipefail

vekrun=$(cd "$1" && pwd)/vekrun
pages=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/actions
fresh=$(mktemp -d)
trap 'rm -rf "$fresh"' EXIT

for type in $("$vekrun" actions | awk '/^  / { print $1 }'); do
  "$vekrun" describe "$type" | awk -v type="$type" '
    NR == 1 { print "# " $0 "\n\n```text"; next }
    NR == 2 { next }
    { print }
    END { print "```" }' >"$fresh/$type.md"
done

if [[ ${2:-} == --check ]]; then
  diff -r "$pages" "$fresh" || { echo "docs/generate.sh brings docs/actions up to date" >&2; exit 1; }
else
  rm -rf "$pages"
  cp -r "$fresh" "$pages"
  chmod 755 "$pages"
fi
