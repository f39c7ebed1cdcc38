#!/usr/bin/env bash
# Fetches the sources of the libraries that the Flatpak builds: those of the packages that Morvane
# uses on Debian, by the package manager. Takes a line "deb-src" among its sources.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
mkdir -p "$here/sources"
cd "$here/sources"
for package in nlohmann-json3 pugixml graphviz qscintilla2; do
  [[ -d $package ]] && continue
  apt-get source "$package"
  mv "$package"-*/ "$package"
done
