# shellcheck shell=bash
# Sourced by the wine-* scripts: where Wine's state lies and how its programs run.

vek_windows=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
VEK_WINE=${VEK_WINE:-${vek_windows%/*}/build/wine}
mkdir -p "$VEK_WINE/home"

export WINEPREFIX=$VEK_WINE/prefix WINEARCH=win64
# Desktop, Documents and the recycle bin of the prefix lead into HOME: not into the user's own.
export HOME=$VEK_WINE/home
# In the C locale Wine loses characters beyond ASCII in arguments and file names.
export LC_ALL=C.UTF-8
export WINEDEBUG=${WINEDEBUG:--all}
# No offers to install .NET or Gecko, no menu entries.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=d"
unset DISPLAY WAYLAND_DISPLAY XDG_DATA_HOME XDG_CONFIG_HOME

# Root opens read-only files for writing, which no Windows user can: just that power is dropped. The server
# has to be started so as well.
vek_drop=()
if [[ $EUID == 0 ]]; then vek_drop=(setpriv --bounding-set=-dac_override,-dac_read_search); fi

# vek_choose x64|x86: whose prefix vek_wine and vek_server are for. Wine is called directly, because the front
# end asks for a 32-bit one at each start.
vek_choose() {
  if [[ $1 == x86 ]]; then
    export WINEPREFIX=$VEK_WINE-x86/prefix
    vek_wine() { timeout 120 "$vek_windows/wine-run32" "$@"; }
    vek_server() { VEK_PROGRAM32=/usr/lib/wine/wineserver timeout 20 "$vek_windows/wine-run32" "$@"; }
  else
    vek_wine() { timeout 120 "${vek_drop[@]}" /usr/lib/wine/wine64 "$@"; }
    vek_server() { timeout 20 "${vek_drop[@]}" wineserver "$@"; }
  fi
}
