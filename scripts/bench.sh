#!/usr/bin/env bash
# Builds and runs the benchmarks and prints each ratio beside its mark; fails when one is missed:
# bench.sh [BENCHMARK_OPTION...], such as --benchmark_filter=Read
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" release morvane_bench
exec "$root/build/release/bin/morvane_bench" --benchmark_repetitions=3 "$@"
