#!/usr/bin/env bash
# Does what the last chapter of the tutorial says with the chart that it ends with, and compares
# what the program prints: tutorial.sh DOCS TOOLS, the folders of the tutorial and of the generators.
set -euo pipefail

tutorial=$1/Tutorial.md
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$1/charts/Door4.mrv" "$work/Door.mrv"

# sample LANGUAGE [NUMBER]: the lines of a sample
sample() {
  awk -v fence='```'"$1" -v wanted="${2:-1}" '
    /^```/ { open = !open; inside = open && $0 == fence; count += inside; next }
    inside && count == wanted' "$tutorial"
}

"$2/mrv2cpp.exe" -o "$work" "$work/Door.mrv"
sample cpp 1 >"$work/House.h"
sample cpp 2 >"$work/main.cpp"
sample sh >"$work/commands"
sample text >"$work/expected"
[[ -s $work/commands && -s $work/expected ]] || {
  echo "the tutorial has lost its samples" >&2
  exit 1
}
(cd "$work" && bash -euo pipefail commands) >"$work/printed"
diff -u --label promised --label printed "$work/expected" "$work/printed"

# The guard, the effect and the properties that the reader types are those of the chart.
for number in 1 2 3 4; do
  sample '' $number >"$work/typed"
  [[ -s $work/typed ]]
  while read -r line; do
    tr -d '\r' <"$work/Door.mrv" | grep -qxF "$line" || {
      echo "the chart of the tutorial has no line: $line" >&2
      exit 1
    }
  done <"$work/typed"
done
