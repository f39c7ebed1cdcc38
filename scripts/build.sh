#!/usr/bin/env bash
# Configures and builds one preset: build.sh PRESET [TARGET...]
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
preset=$1
shift

cd "$root"
cmake --preset "$preset"
cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
