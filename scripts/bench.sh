#!/usr/bin/env bash
# Builds and runs the benchmarks and prints each ratio beside its mark; fails when one is missed:
# bench.sh [--slack=FACTOR] [BENCHMARK_OPTION...], such as --benchmark_filter=Read. With a factor
# ratios may be so many times their mark, and marks in seconds are left out: for a machine that runs
# other work, too.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" release morvane_bench morvane_code_bench
# In mixed order, so that a machine that slows down for a while does not slow down one side of a
# ratio only.
status=0
for program in morvane_bench morvane_code_bench; do
  "$root/build/release/bin/$program" --benchmark_repetitions=3 \
    --benchmark_enable_random_interleaving=true "$@" || status=1
done
exit "$status"
