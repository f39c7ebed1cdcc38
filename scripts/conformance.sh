#!/usr/bin/env bash
# Compares what made-up charts do in every language that they become, step by step, and with an
# independent SCXML engine and the designer's own simulation: conformance.sh [COUNT [FIRST]]. Charts with a difference stay in
# build/release/conformance with their code and their traces.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
count=${1:-1000}
first=${2:-1}

"$root/scripts/setup.sh"
"$root/scripts/build.sh" release morvane_conformance morvane_scxml_runner morvane
build=$root/build/release
"$build/tests/morvane_conformance" "$count" "$build/conformance" "$first" \
  "$build/tests/morvane_scxml_runner" "$build/bin/morvane"
