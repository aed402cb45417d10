#!/usr/bin/env bash
# Builds the third-party libraries for Windows and prints the folder they lie in. The versions are those of
# the installed Debian packages, so both platforms stand on the same sources; what is there already is kept.
# usage: deps.sh x64|x86
set -euo pipefail

here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=${here%/*}
case ${1:-} in
  x64) triple=x86_64-w64-mingw32 compiler=g++-mingw-w64-x86-64-posix ;;
  x86) triple=i686-w64-mingw32 compiler=g++-mingw-w64-i686-posix ;;
  *) echo "usage: deps.sh x64|x86" >&2; exit 2 ;;
esac

# shellcheck disable=SC2016
packages=$(dpkg-query -W -f='${Package} ${source:Version}\n' \
  libpugixml-dev libpcre2-dev libgtest-dev libcli11-dev nlohmann-json3-dev duktape-dev "$compiler")
key=$({ cat "$here/deps.sh" "$root/cmake/mingw.cmake"; echo "$packages"; } | sha256sum | cut -c1-12)
prefix=$root/build/windows-deps/$key/$1
if [[ -f $prefix/complete ]]; then
  echo "$prefix"
  exit
fi

work=$prefix.work
rm -rf "$prefix" "$work"
mkdir -p "$prefix"/{include,share/cmake} "$work/apt/"{lists,cache/archives}/partial

# fetch_source SOURCE PACKAGE: the source that the installed package was built from; where its archive no longer
# has it, as with superseded security updates, the one that the release came with. By lists of its own, so that
# the machine's stay as they are.
fetch_source() {
  local version
  version=$(awk -v package="$2" '$1 == package { print $2 }' <<<"$packages")
  fetch_from "$2" "$1=$version" || fetch_from libpugixml-dev "$1"
}

# fetch_from PACKAGE SOURCE: from the archive and the suite that the installed package came from.
fetch_from() {
  local uri suite keyring=/usr/share/keyrings/debian-archive-keyring.gpg apt
  read -r uri suite < <(apt-cache policy "$1" | awk '$2 ~ /^https?:/ { print $2, $3; exit }')
  [[ $uri ]] || { echo "no archive offers $1; apt-get update first" >&2; return 1; }
  [[ -f $keyring ]] && keyring="[signed-by=$keyring]" || keyring=
  echo "deb-src $keyring $uri ${suite%/*} ${suite#*/}" >"$work/apt/sources.list"
  apt=(apt-get -qq -o "Dir::Etc::sourcelist=$work/apt/sources.list" -o Dir::Etc::sourceparts=/dev/null
       -o "Dir::State::lists=$work/apt/lists" -o "Dir::Cache=$work/apt/cache" -o APT::Sandbox::User=root)
  "${apt[@]}" update && (cd "$work" && "${apt[@]}" source "$2")
}

# cross_build SOURCE OPTION...
cross_build() {
  local source=$1
  shift
  cmake -S "$source" -B "$work/build" --fresh -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw.cmake" \
    -DVEK_TRIPLE="$triple" -DVEK_MINGW_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_SHARED_LIBS=OFF "$@"
  cmake --build "$work/build" --target install
  rm -rf "$work/build"
}

# In the background, because a command before "||" would go on after an error.
{
  fetch_source pugixml libpugixml-dev
  cross_build "$work"/pugixml-*/ -DPUGIXML_BUILD_TESTS=OFF
  fetch_source pcre2 libpcre2-dev
  cross_build "$work"/pcre2-*/ -DPCRE2_BUILD_PCRE2_8=ON -DPCRE2_SUPPORT_JIT=ON -DPCRE2_SUPPORT_UNICODE=ON \
    -DBUILD_STATIC_LIBS=ON -DPCRE2_BUILD_PCRE2GREP=OFF -DPCRE2_BUILD_TESTS=OFF -DPCRE2_SUPPORT_LIBREADLINE=OFF \
    -DPCRE2_SUPPORT_LIBEDIT=OFF -DPCRE2_SUPPORT_LIBBZ2=OFF -DPCRE2_SUPPORT_LIBZ=OFF
  cross_build /usr/src/googletest -DINSTALL_GTEST=ON -DBUILD_GMOCK=ON
  # Headers and sources are copied: the compiler must never look into /usr/include.
  cp -r /usr/include/{CLI,nlohmann} "$prefix/include/"
  cp -r /usr/share/cmake/{CLI11,nlohmann_json} "$prefix/share/cmake/"
  cp -r /usr/share/duktape "$prefix/share/"
} >"$prefix/log" 2>&1 </dev/null &
wait $! || {
  tail -n 30 "$prefix/log" >&2
  exit 1
}
rm -rf "$work"
touch "$prefix/complete"
echo "$prefix"
