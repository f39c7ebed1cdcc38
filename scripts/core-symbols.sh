#!/usr/bin/env bash
# Fails, and names them, when static libraries have undefined symbols that Qt would have to fill:
# core-symbols.sh ARCHIVE...
set -euo pipefail

symbols=$(nm --undefined-only --demangle "$@")
# Classes of Qt are Q and a capital, its functions q and a capital or qt_.
found=$(grep -E ' U (.*[^A-Za-z0-9_:])?(Q[A-Z][A-Za-z0-9_]*|q[A-Z][A-Za-z0-9_]*\(|qt_[a-z])' \
  <<<"$symbols" | sort -u || true)
if [[ -n $found ]]; then
  echo "$* needs the toolkit:"
  echo "$found" | head -n 40
  exit 1
fi
