#!/usr/bin/env bash
# Kills the program at random moments, often, and tells what was left each time: kills.sh
# [KILLS_DURING_SAVES [KILLS_WHILE_DRAWING]]. During saves of a small and of a large chart the old or
# the new text has to be on the disk or on offer for a recovery; in an hour of drawing, done ten times
# as fast, at most the last second may be missing. Fails when it is otherwise.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
saves=${1:-1000}
drawing=${2:-200}
gestures_of_an_hour=3600

"$root/scripts/setup.sh"
"$root/scripts/build.sh" release morvane_save_kills morvane_draw_kills
bin="$root/build/release/bin"
failed=0
"$bin/morvane_save_kills" "$saves" 75 || failed=1
"$bin/morvane_save_kills" "$saves" 23000 || failed=1
"$bin/morvane_draw_kills" "$drawing" "$gestures_of_an_hour" 100 || failed=1
exit "$failed"
