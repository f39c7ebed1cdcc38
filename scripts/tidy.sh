#!/usr/bin/env bash
# Runs cppcheck over the sources, and then clang-tidy, which takes its time, over all of them, over
# those whose path matches, or over those that differ from a commit: tidy.sh [REGEX | --since COMMIT].
# Of many that differ it takes some only, and says so.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
rooms=(checks codegen connectors dialogs drawing exchange generators layout machine model persistence
  platform recovery resources review shell simulation states surface)
since=
if [[ ${1:-} == --since ]]; then
  since=$2
  shift 2
fi
filter=${1:-"^$root/(main|($(IFS='|' && echo "${rooms[*]}"))/.*)\\.cpp\$"}

"$root/scripts/setup.sh" clang-tidy cppcheck
cd "$root"
cppcheck --enable=warning,performance,portability --library=qt --std=c++20 --error-exitcode=1 \
  --quiet -I . main.cpp "${rooms[@]}" bench tools
if [[ -n $since ]]; then
  most=40
  mapfile -t touched < <(git diff --name-only --diff-filter=d "$since" -- main.cpp \
    "${rooms[@]/%//*.cpp}")
  ((${#touched[@]})) || exit 0
  if ((${#touched[@]} > most)); then
    echo "clang-tidy looks at $most of the ${#touched[@]} sources that differ from $since"
    mapfile -t touched < <(printf '%s\n' "${touched[@]}" | shuf --random-source=<(yes) -n "$most")
  fi
  filter="^$root/($(IFS='|' && echo "${touched[*]//./\\.}"))\$"
fi
# A folder of its own: clang can't read the compiler's precompiled headers.
cmake --preset tidy
run-clang-tidy -quiet -p build/tidy -j "$(nproc)" "$filter"
