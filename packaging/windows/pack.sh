#!/usr/bin/env bash
# Makes the installer and the ZIP of what was built: pack.sh BUILD_FOLDER
set -euo pipefail

cd "$1"
cmake . >/dev/null
rm -f Morvane-*.exe Morvane-*.zip
cpack
ls -l Morvane-*.exe Morvane-*.zip
