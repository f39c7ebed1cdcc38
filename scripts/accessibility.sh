#!/usr/bin/env bash
# Looks at a chart as a screen reader does, through the desktop's own bus on a display of its own,
# and draws another one by keys alone: accessibility.sh [FILE [PROGRAM [PICTURE]]]. Prints how many objects have
# a role, a name and a place, how many a Tab came to, and how much of a coffee machine was drawn.
# Fails unless all were.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
chart=$(realpath "${1:-$root/Examples/Lift/Lift.mrv}")
"$root/scripts/setup.sh" xvfb openbox xdotool imagemagick dbus at-spi2-core python3-gi gir1.2-atspi-2.0
if (($# > 1)); then
  program=$(realpath "$2")
else
  "$root/scripts/build.sh" release morvane install_layout
  program="$root/build/release/bin/morvane"
fi

source "$root/scripts/display.sh"
start_display 1600x1000
# A session bus of its own, on which nobody else's programs are; what it starts goes with it
export DBUS_SESSION_BUS_ADDRESS="unix:path=$work/bus" HOME="$work"
dbus-daemon --session --nofork --address="$DBUS_SESSION_BUS_ADDRESS" >/dev/null 2>&1 &
jobs+=($!)
until [[ -S $work/bus ]]; do sleep 0.1; done
# What a screen reader does when it starts
dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus \
  org.freedesktop.DBus.Properties.Set string:org.a11y.Status string:IsEnabled \
  variant:boolean:true >/dev/null
cp "$chart" "$work/"
open_chart "$work/${chart##*/}" 1600 1000
xdotool mousemove 1590 990
/usr/bin/python3 "$root/scripts/accessibility.py" "$work/${chart##*/}"
if (($# > 2)); then import -silent -window root "$3"; fi
kill "$app"
wait "$app" 2>/dev/null || true
