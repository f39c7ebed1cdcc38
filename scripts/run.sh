#!/usr/bin/env bash
# Installs what is missing, builds Morvane and opens the designer: run.sh [FILE]
# Without a display it draws the chart to a picture instead.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
if (($# > 1)); then
  echo "usage: ${0##*/} [FILE]" >&2
  exit 2
fi
file=${1:-}
if [[ -n $file && ! -f $file ]]; then
  echo "$file: no such file" >&2
  exit 1
fi

"$root/scripts/setup.sh"
"$root/scripts/build.sh" release morvane install_layout

program="$root/build/release/bin/morvane"
if [[ -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} ]]; then
  exec "$program" --new-instance ${file:+"$file"} # not in one that was built before
fi

file=${file:-"$root/Examples/Socket_C++/Socket.mrv"}
name=${file##*/}
picture="$root/build/release/${name%.*}.png"
echo "There is no display (neither DISPLAY nor WAYLAND_DISPLAY is set)."
"$program" --export "$picture" "$file"
echo "The chart is drawn in $picture"
