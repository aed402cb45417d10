#!/usr/bin/env bash
# Cross-builds for Windows, runs the tests under Wine, and executes the tour with vekrun.exe.
# usage: lane.sh [x64|x86] [OPTION]...   (options: those of ctest)
#        lane.sh package                 (only makes a zip of the 64-bit build, in build/package)
set -euo pipefail

here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=${here%/*}
arch=x64
package=
case ${1:-} in
  x64 | x86) arch=$1 && shift ;;
  package) package=yes ;;
esac
build=$root/build/windows-$arch

case $arch in
  x64) runner=wine-run triple=x86_64-w64-mingw32 compiler=g++-mingw-w64-x86-64-posix ;;
  x86) runner=wine-run32 triple=i686-w64-mingw32 compiler=g++-mingw-w64-i686-posix ;;
esac

note() { printf 'windows: %s\n' "$*" >&2; }
die() { note "$@"; exit 1; }

# need PACKAGE...: makes sure that the Debian packages are there.
need() {
  local package missing=()
  for package in "$@"; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  ((EUID == 0)) || die "missing packages, to be installed by root: apt-get install ${missing[*]}"
  note "installing ${missing[*]}"
  local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0)
  { "${apt[@]}" update && "${apt[@]}" install -y --no-install-recommends "${missing[@]}"; } </dev/null >/dev/null ||
    die "could not install ${missing[*]}"
}

configure() {
  local prefix=$1 fresh=
  # Another prefix or a moved checkout: what CMake found before lies elsewhere.
  grep -qsxF "VEK_MINGW_PREFIX:UNINITIALIZED=$prefix" "$build/CMakeCache.txt" || fresh=--fresh
  grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$build/CMakeCache.txt" || fresh=--fresh
  [[ $fresh || ! -f $build/build.ninja ]] || return 0
  note "configuring build/windows-$arch"
  cmake $fresh -S "$root" -B "$build" -G Ninja --log-level=WARNING -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw.cmake" -DVEK_TRIPLE="$triple" -DVEK_MINGW_PREFIX="$prefix" >&2
}

run_tests() {
  ctest --test-dir "$build" --output-on-failure -j "$(nproc)" "$@" </dev/null
  local vekrun=$build/bin/vekrun.exe tour=$root/examples/tour.vekproj
  [[ -f $vekrun && -f $tour ]] || return 0
  note "executing the tour"
  "$here/$runner" "$vekrun" run "Z:$tour" -D "OUT=Z:$build/tour" </dev/null
}

need g++ cmake ninja-build dpkg-dev libpugixml-dev duktape-dev libcli11-dev nlohmann-json3-dev libpcre2-dev libgtest-dev \
  libgmock-dev "$compiler"
[[ $arch == x86 || $package ]] || need wine wine64 util-linux
note "third-party libraries"
prefix=$("$here/deps.sh" "$arch")
configure "$prefix"
note "building"
if [[ $package ]]; then
  ninja -C "$build" --quiet vekrun Vek40File >&2 || die "the build failed"
  (cd "$build" && cpack -G ZIP -B "$root/build/package" >/dev/null) || die "could not make the zip"
  exit
fi
if [[ $arch == x86 && ! -f ${VEK_ROOT32:-$root/build/wine32-root}/complete ]]; then
  ninja -C "$build" --quiet vekrun Vek40File >&2 || die "the build failed"
  note "32 bit is built, its tests were not: there is no 32-bit Wine (windows/wine32-root.sh makes one)"
  exit
fi
ninja -C "$build" --quiet >&2 || die "the build failed"
"$here/wine-up" "$arch"
trap '"$here/wine-down" "$arch"' EXIT
run_tests "$@"
