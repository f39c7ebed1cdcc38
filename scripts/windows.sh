#!/usr/bin/env bash
# Builds Morvane for 64-bit Windows on Debian 12 and tests it under Wine:
#   windows.sh            all of it: the toolkit (once), the program, the tests, the installer
#   windows.sh core       the program without its windows, and the tests of that
#   windows.sh build      no tests and no installer
#   windows.sh package    no tests
# What is built once, from Debian's packages of the sources, is kept in the folder that
# MORVANE_WINDOWS_LIBRARIES names, else in the user's cache.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export MORVANE_WINDOWS_LIBRARIES=${MORVANE_WINDOWS_LIBRARIES:-${XDG_CACHE_HOME:-$HOME/.cache}/morvane/windows}
libraries=$MORVANE_WINDOWS_LIBRARIES
sources=$libraries/sources
recipes=$root/packaging/windows/libraries
jobs=$(nproc)
# Never one that the user keeps programs in: what runs in it is ended with the tests.
export WINEPREFIX=$libraries/wine
# Other clones find what the compiler's cache has of this one.
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$root} CCACHE_NOHASHDIR=${CCACHE_NOHASHDIR:-1}

usage() {
  sed -n '2,9s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
  exit 2
}

# get_sources PACKAGE...: unpacks Debian's packages of sources, each into a folder of its name. The
# lists of sources are switched on for these calls only, in a folder of their own.
get_sources() {
  local lists=$libraries/apt
  local options=(-q -o Dir::Etc::sourcelist="$lists/sources.list" -o Dir::Etc::sourceparts="$lists/parts"
                 -o Dir::State::lists="$lists/lists" -o APT::Sandbox::User=root)
  local package updated=
  mkdir -p "$lists/parts" "$lists/lists/partial" "$sources"
  [[ ! -f /etc/apt/sources.list ]] ||
    sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$lists/sources.list"
  for package in /etc/apt/sources.list.d/*.sources; do
    [[ ! -f $package ]] || sed 's/^Types:.*/Types: deb-src/' "$package" >"$lists/parts/${package##*/}"
  done
  for package in "$@"; do
    [[ ! -f $sources/$package/.unpacked ]] || continue
    [[ $updated ]] || apt-get "${options[@]}" update
    updated=yes
    rm -rf "${sources:?}/$package" "$sources/download"
    mkdir -p "$sources/download"
    (cd "$sources/download" && apt-get "${options[@]}" source --only-source "$package")
    mv "$sources/download"/*/ "$sources/$package"
    touch "$sources/$package/.unpacked"
  done
}

# is_made NAME FILE...: whether a step was done with the same recipe, which is these files and the
# version of the compiler.
is_made() {
  local name=$1
  shift
  recipe=$(cat "$@" <(x86_64-w64-mingw32-g++-posix -dumpfullversion) | sha256sum)
  [[ -f $libraries/made-$name && $(<"$libraries/made-$name") == "$recipe" ]]
}

# build SOURCE FOLDER OPTION...: builds and installs a step among the libraries. Its folder may be
# another checkout's, so what that configured is forgotten.
build() {
  local source=$1 folder=$libraries/build/$2
  shift 2
  cmake --fresh -G Ninja -S "$source" -B "$folder" --toolchain "$root/packaging/windows/toolchain.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$libraries" "$@"
  cmake --build "$folder" --parallel "$jobs"
  cmake --install "$folder"
}

# Where the host's own tools of the toolkit are, which a build for another system runs
toolkit_options() {
  local packages
  packages=/usr/lib/$(gcc -dumpmachine)/cmake
  echo "-DQT_HOST_PATH=/usr -DQt6HostInfo_DIR=$packages/Qt6HostInfo -DQT_HOST_PATH_CMAKE_DIR=$packages"
}

make_toolkit() {
  local off=() feature options
  is_made toolkit "$root/packaging/windows/toolkit-features.txt" && return
  get_sources qt6-base
  for feature in $(grep -v '^#' "$root/packaging/windows/toolkit-features.txt"); do
    off+=("-DFEATURE_$feature=OFF")
  done
  read -ra options <<<"$(toolkit_options)"
  build "$sources/qt6-base" toolkit "${options[@]}" "${off[@]}" -DINPUT_opengl=no \
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_TOOLS_BY_DEFAULT=OFF
  rm -rf "$libraries/build/toolkit"
  echo "$recipe" >"$libraries/made-toolkit"
}

make_libraries() { # make_libraries NAME OPTION...
  local name=$1 files options
  shift
  mapfile -t files < <(find "$recipes" -type f | LC_ALL=C sort)
  is_made "$name" "${files[@]}" && return
  read -ra options <<<"$(toolkit_options)"
  build "$recipes" "$name" "${options[@]}" "$@" -DSOURCES="$sources"
  echo "$recipe" >"$libraries/made-$name"
}

install_packages() {
  "$root/scripts/setup.sh" g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine wine64 \
    googletest bison flex dpkg-dev patch icoutils "$@"
}

# Has one program wait all the while that the tests run: when none does, Wine ends its services, and
# loses a program that starts meanwhile. The program ends with its input, which this script holds.
serve_wine() {
  local wine=$root/packaging/windows/wine.sh
  "$wine" wineboot --init >/dev/null 2>&1
  coproc waiting { exec "$wine" cmd >/dev/null 2>&1; }
  timeout 120 "$wine" cmd /c exit >/dev/null 2>&1 || true
  # And so does whatever a test has left.
  trap 'wineserver -k || true' EXIT
}

configure_and_build() {
  cd "$root"
  cmake --preset "$1"
  cmake --build --preset "$1" --parallel "$jobs"
}

run_tests() {
  serve_wine
  cd "$root"
  # Wine now and then loses a program all the same.
  ctest --preset "$1" --repeat until-pass:2
}

core() {
  install_packages
  get_sources graphviz pugixml duktape
  make_libraries core
  configure_and_build windows-core
  run_tests windows-core
}

designer() {
  install_packages qt6-base-dev qt6-base-dev-tools qt6-svg-dev
  make_toolkit
  get_sources graphviz pugixml duktape harfbuzz qscintilla2 qtsvg-opensource-src
  make_libraries designer -DDESKTOP=ON
  configure_and_build windows
}

pack() {
  install_packages nsis zip
  "$root/packaging/windows/pack.sh" "$root/build/windows"
}

case ${1:-all} in
  all) designer; run_tests windows; pack ;;
  core) core ;;
  build) designer ;;
  package) designer; pack ;;
  *) usage ;;
esac
