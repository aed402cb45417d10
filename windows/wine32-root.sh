#!/usr/bin/env bash
# Makes build/wine32-root: a small i386 Debian with a 32-bit Wine, about 1 GB, for the tests of the 32-bit
# build. (A foreign architecture on the machine itself would throw its 64-bit Wine out.) Needs root.
set -euo pipefail

here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
target=${VEK_ROOT32:-${here%/*}/build/wine32-root}
[[ ! -f $target/complete ]] || exit 0
((EUID == 0)) || { echo "wine32-root.sh: needs root" >&2; exit 1; }

command -v debootstrap >/dev/null || apt-get -qq install -y --no-install-recommends debootstrap
# The archive and the suite that this machine's own packages come from.
read -r uri suite < <(apt-cache policy libpugixml-dev | awk '$2 ~ /^https?:/ { print $2, $3; exit }')
rm -rf "$target"
debootstrap --variant=minbase --arch=i386 --components=main "${suite%/*}" "$target" "$uri"

# No service may start in there.
printf '#!/bin/sh\nexit 101\n' >"$target/usr/sbin/policy-rc.d"
chmod +x "$target/usr/sbin/policy-rc.d"
run=(chroot "$target" env DEBIAN_FRONTEND=noninteractive LC_ALL=C apt-get -qq)
"${run[@]}" update
"${run[@]}" install -y --no-install-recommends wine32 wine
rm -f "$target"/var/cache/apt/archives/*.deb
touch "$target/complete"
