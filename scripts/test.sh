#!/usr/bin/env bash
# Installs what is missing, checks the formatting, builds, and runs every test:
# test.sh [PRESET [CTEST_OPTION...]], where PRESET is release, debug, asan or tsan.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
preset=${1:-release}
shift || true

"$root/scripts/setup.sh"
"$root/scripts/format.sh" --check
"$root/scripts/build.sh" "$preset"
cd "$root"
ctest --preset "$preset" "$@"
