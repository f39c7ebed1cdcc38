#!/usr/bin/env bash
# Sends made-up charts out as SCXML, without a trace and with one, reads them back, and compares what
# they do before and after: roundtrip.sh [COUNT [FIRST]].
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" release morvane_round_trip
"$root/build/release/tests/morvane_round_trip" "${1:-300}" "${2:-1}"
