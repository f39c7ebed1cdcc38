#!/usr/bin/env bash
# Measures pictures of charts of 100, 1,000 and 10,000 objects: how long each kind takes, the memory
# it needs and how large the file is, the best of three runs each; and beside them what other
# programs take to draw the same boxes, names and lines, in one run each: export-figures.sh [PROGRAM [CHART_WRITER]].
# Prints a table, and fails if a picture comes out differently in two runs.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh" time python3-minimal graphviz dia inkscape xvfb xauth
if (($# > 0)); then
  program=$(realpath "$1")
  writer=$(realpath "$2")
else
  "$root/scripts/build.sh" release morvane morvane_bench_chart
  program="$root/build/release/bin/morvane"
  writer="$root/build/release/bin/morvane_bench_chart"
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME="$work"
# A run of another program may take this long.
limit=180

# measure LABEL OBJECTS OUT COMMAND...: a row of the table, of as many runs as $runs says.
measure() {
  local label=$1 objects=$2 out=$3 best= memory= seconds kilobytes status
  for ((run = 0; run < runs; run++)); do
    rm -f "$out"
    status=0
    command time -f '%e %M' -o "$work/time" timeout "$limit" "${@:4}" >/dev/null 2>&1 || status=$?
    if ((status != 0)) || [[ ! -s $out ]]; then
      printf '%-18s %8d %10s\n' "$label" "$objects" "none in $limit s ($status)"
      return 0
    fi
    read -r seconds kilobytes <"$work/time"
    if [[ -z $best ]] || awk "BEGIN { exit !($seconds < $best) }"; then
      best=$seconds memory=$kilobytes
    fi
  done
  printf '%-18s %8d %8.2f s %6d MB %9d KB\n' "$label" "$objects" "$best" $((memory / 1024)) \
    $(($(stat -c %s "$out") / 1024))
}

same=0
printf '%-18s %8s %10s %9s %12s\n' program objects time memory file
for objects in 100 1000 10000; do
  chart="$work/c$objects.mrv"
  "$writer" "$objects" >"$chart"
  python3 "$root/scripts/export_twins.py" "$chart" "$work/c$objects"
  runs=3
  for kind in png svg pdf emf; do
    measure "morvane $kind" "$objects" "$work/o.$kind" "$program" --export "$work/o.$kind" "$chart"
    cp "$work/o.$kind" "$work/once"
    "$program" --export "$work/o.$kind" "$chart"
    cmp "$work/once" "$work/o.$kind" || same=1
  done
  "$program" --export "$work/c$objects.svg" "$chart"
  runs=1
  for kind in png svg pdf; do
    measure "neato $kind" "$objects" "$work/n.$kind" \
      neato -n -Gdpi=96 -T"$kind" -o "$work/n.$kind" "$work/c$objects.dot"
  done
  for kind in png svg pdf; do
    measure "dia $kind" "$objects" "$work/d.$kind" \
      xvfb-run -a dia --nosplash -e "$work/d.$kind" "$work/c$objects.dia"
  done
  for kind in png pdf emf; do
    measure "inkscape $kind" "$objects" "$work/i.$kind" \
      inkscape --export-filename="$work/i.$kind" "$work/c$objects.svg"
  done
done
exit "$same"
