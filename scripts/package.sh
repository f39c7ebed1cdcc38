#!/usr/bin/env bash
# Builds the Debian package in build/package and has lintian look at it.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh" lintian dpkg-dev
cd "$root"
cmake --preset package
cmake --build --preset package
cd build/package
rm -f ./*.deb
cpack
lintian --fail-on error,warning,info --tag-display-limit 0 ./*.deb
