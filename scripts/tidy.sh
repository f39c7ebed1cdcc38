#!/usr/bin/env bash
# Runs clang-tidy over the sources, or over those whose path matches: tidy.sh [REGEX]
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
filter=${1:-"^$root/(main|(codegen|connectors|dialogs|model|persistence|platform|resources|shell|states|surface)/.*)\\.cpp\$"}

"$root/scripts/setup.sh" clang-tidy
cd "$root"
# A folder of its own: clang can't read the compiler's precompiled headers.
cmake --preset tidy
cmake --build build/tidy --target morvane_ui_autogen
run-clang-tidy -quiet -p build/tidy -j "$(nproc)" "$filter"
