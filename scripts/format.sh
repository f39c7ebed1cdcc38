#!/usr/bin/env bash
# Formats all sources in place; with --check it changes nothing and fails on a difference.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
case ${1:-} in
  '') options=(-i) ;;
  --check) options=(--dry-run -Werror) ;;
  *) echo "usage: ${0##*/} [--check]" >&2; exit 2 ;;
esac

cd "$root"
find . \( -name '.git' -o -path './build' -o -path './build-*' \) -prune \
  -o -type f \( -name '*.cpp' -o -name '*.h' \) -print0 |
  xargs -0 -r clang-format --style=file "${options[@]}"
