#!/usr/bin/env bash
# Opens damaged charts in one window on a real display, with real message boxes and under the
# sanitizers: damaged-charts.sh [COUNT], 10000 at first, behind the nine cut examples. Prints how many
# opened and how many were refused; a crash or a report of a sanitizer ends it with status 1, and
# leaves the chart in build/asan/damaged-input.mrv.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh" xvfb openbox
"$root/scripts/build.sh" asan morvane_damaged >/dev/null

source "$root/scripts/display.sh"
start_display 1280x1024
export QT_QPA_PLATFORM=xcb UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export LSAN_OPTIONS=suppressions=$root/tests/lsan.supp:print_suppressions=0
cd "$root/build/asan"
fuzz/morvane_damaged "$root/Examples" "${1:-10000}" || exit 1
