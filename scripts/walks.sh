#!/usr/bin/env bash
# Random walks of all commands over a chart, with edits by double click and from the list of a
# search, pastes and drags: walks.sh [COUNT], 1000 at first. After each walk undo goes back as far as
# it can and redo comes forward again. Prints how many walks showed every step again byte for byte.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/build.sh" release morvane_walks >/dev/null
"$root/build/release/fuzz/morvane_walks" "${1:-1000}"
