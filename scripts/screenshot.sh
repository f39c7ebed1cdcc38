#!/usr/bin/env bash
# Takes docs/morvane.png anew: the designer with the Socket example, on a display of its own.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
size=1600x1120
"$root/scripts/setup.sh" xvfb openbox xdotool imagemagick
"$root/scripts/build.sh" release morvane install_layout

work=$(mktemp -d)
jobs=()
cleanup() {
  for job in "${jobs[@]}"; do kill "$job" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT

mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 1680x1200x24 3>"$work/display" 2>/dev/null &
jobs+=($!)
read -r number <"$work/display"
export DISPLAY=":$number" XDG_CONFIG_HOME="$work/config"
unset WAYLAND_DISPLAY
openbox 2>/dev/null &
jobs+=($!)
"$root/scripts/language.sh"
"$root/build/release/bin/morvane" "$root/Examples/Socket_C++/Socket.mrv" &
program=$!
jobs=("$program" "${jobs[@]}")

window=$(timeout 30 xdotool search --sync --onlyvisible --pid "$program" --name 'Socket' | tail -n 1)
xdotool windowmove "$window" 20 20 windowsize --sync "$window" "${size%x*}" "${size#*x}"
sleep 2 # for the splash window to go and the last paint to come
import -frame -window "$window" "$root/docs/morvane.png"
