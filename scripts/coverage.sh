#!/usr/bin/env bash
# Runs every test on a build that counts the lines they reach, and tells which lines none did:
# coverage.sh. A page for each source goes to build/coverage/report/.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build="$root/build/coverage"

"$root/scripts/setup.sh" gcovr
"$root/scripts/build.sh" coverage
find "$build" -name '*.gcda' -delete
cd "$root"
ctest --preset coverage --output-on-failure
mkdir -p "$build/report"
gcovr --root "$root" --object-directory "$build" \
  --exclude 'tests/' --exclude 'bench/' --exclude 'fuzz/' --exclude 'tools/' --exclude 'build/' \
  --exclude-throw-branches --html-details "$build/report/index.html" \
  --txt "$build/report/lines.txt" --print-summary
cat "$build/report/lines.txt"
