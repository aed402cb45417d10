#!/usr/bin/env bash
# Checks who includes whom, and that nothing reaches past the platform. Prints FILE:LINE: REASON for each
# breach. usage: check_arrows.sh [ROOT]
set -euo pipefail

rules=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/check_arrows.awk
cd "${1:-$(dirname "$rules")/..}"
mapfile -d '' files < <(find src tests \( -name '*.h' -o -name '*.hpp' -o -name '*.cpp' -o -name '*.cc' -o -name '*.inc' \) -print0 | sort -z)
((${#files[@]})) || { echo "no sources below $PWD" >&2; exit 2; }
LC_ALL=C awk -f "$rules" "${files[@]}"
