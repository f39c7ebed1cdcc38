#!/usr/bin/env bash
# Runs cppcheck over the sources, and then clang-tidy, which takes its time, over all of them or
# over those whose path matches: tidy.sh [REGEX]
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
rooms=(codegen connectors dialogs drawing model persistence platform recovery resources shell states
  surface)
filter=${1:-"^$root/(main|($(IFS='|' && echo "${rooms[*]}"))/.*)\\.cpp\$"}

"$root/scripts/setup.sh" clang-tidy cppcheck
cd "$root"
cppcheck --enable=warning,performance,portability --library=qt --std=c++20 --error-exitcode=1 \
  --quiet -I . main.cpp "${rooms[@]}" bench tools
# A folder of its own: clang can't read the compiler's precompiled headers.
cmake --preset tidy
cmake --build build/tidy --target morvane_{drawing,platform,codegen,shell}_qt_autogen
run-clang-tidy -quiet -p build/tidy -j "$(nproc)" "$filter"
