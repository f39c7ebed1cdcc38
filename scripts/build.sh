#!/usr/bin/env bash
# Configures and builds one preset: build.sh PRESET [TARGET...]
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
preset=$1
shift

# Other clones find what the compiler's cache has of this one.
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$root} CCACHE_NOHASHDIR=${CCACHE_NOHASHDIR:-1}
cd "$root"
cmake --preset "$preset"
cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
