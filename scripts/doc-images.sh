#!/usr/bin/env bash
# Takes the pictures of the user guide and the tutorial anew, docs/images/*.png: it drives the
# program on a display of its own. doc-images.sh [PROGRAM]
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
images="$root/docs/images"
"$root/scripts/setup.sh" xvfb openbox xdotool imagemagick
if (($#)); then
  program=$(realpath "$1")
else
  "$root/scripts/build.sh" release morvane install_layout
  program="$root/build/release/bin/morvane"
fi

source "$root/scripts/display.sh"
screen_size="1240 820"
start_display "${screen_size/ /x}"
mkdir -p "$XDG_CONFIG_HOME/Halvern"
printf '[ToolBars]\nBrowseDir=%s\n' "${program%/bin/*}/Examples/Lift" \
  >"$XDG_CONFIG_HOME/Halvern/Morvane.ini"
mkdir -p "$images"
# Its own folder would show in the dialog of a generator.
mkdir "$work/bin"
cp "$program" "${program%/*}"/{_sp.mo,*.dll,mrv2*.exe,morvane_script} "$work/bin"
program="$work/bin/morvane"

# open CHART: starts the program on a copy of a chart, in a window of a known place and size
open() {
  cp "$1" "$work"
  open_chart "$work/${1##*/}" $screen_size
}

# Where the paper begins on the screen when the window fills it
paper_x=157
paper_y=72

settle() { sleep "${1:-0.4}"; }
quit() {
  kill "$app"
  wait "$app" 2>/dev/null || true
}
# In steps of the grid, at the normal size
at() { awk -v x="$1" -v y="$2" "BEGIN { print int($paper_x + x * 6), int($paper_y + y * 6) }"; }
point() { xdotool mousemove $(at "$1" "$2") && sleep 0.1; }
click() { point "$1" "$2" && xdotool click "${3:-1}" && settle; }
double() { point "$1" "$2" && xdotool click --repeat 2 --delay 80 1 && settle 0.8; }
press() {
  point "$1" "$2"
  xdotool mousedown 1
  sleep 0.1
}
key() { xdotool key "$@" && settle; }
away() { xdotool mousemove 1239 819 && settle; }

# whole NAME: the main window; dialog NAME: the active window; area NAME X Y W H: pixels of the
# screen; part NAME X Y W H: steps of the paper
whole() { import -silent -frame -window "$window" "$images/$1.png"; }
dialog() {
  away
  import -silent -frame -window "$(xdotool getactivewindow)" "$images/$1.png"
}
area() { import -silent -window root -crop "$4x$5+$2+$3" +repage "$images/$1.png"; }
part() { area "$1" $((paper_x + $2 * 6)) $((paper_y + $3 * 6)) $(($4 * 6)) $(($5 * 6)); }

charts="$root/docs/charts"

# The guide
open "$root/Examples/Lift/Lift.mrv"
away
whole window
area tools 604 40 262 31
for y in 171 153; do # opens two nodes of the object browser
  xdotool mousemove 9 "$y" click 1
  settle
done
away
area objects 0 72 620 330
quit

# The second button of the pane "Run", and one of its pages
second_event() { xdotool mousemove 1090 264 click 1 && settle 0.6; }
page() { xdotool mousemove "$1" 217 click 1 && settle; }

open "$root/Examples/Lift/Lift.mrv"
key F9
settle 1
second_event # Call
second_event # AtSpeed
away
whole run
quit

open "$charts/Door1.mrv"
press 57.8 16
for x in 60 65 70 75 80 86 87.500 88; do point "$x" 16; done
settle
part connect 20 6 104 26
key Escape
xdotool mouseup 1
click 8 60
away
part door1 20 6 104 66
double 43 14
part door-name 20 6 64 34
key Escape
quit

open "$charts/Door2.mrv"
away
whole problems
press 11.800 20
for x in 13 16 20 24 27 28; do point "$x" 20; done
settle
part door2 2 6 64 30
key Escape
xdotool mouseup 1
quit

open "$charts/Door3.mrv"
away
part door3 2 6 120 66
double 28 37
dialog door-event
key Escape
click 103 60
double 103 20
xdotool type 'light.On();'
key ctrl+Tab
xdotool type 'light.Off();'
dialog door-entry
quit

open "$charts/Door.mrv"
away
part door 2 6 120 66
double 28 37
dialog event
key Escape
click 8 60
double 103 20
dialog entryexit
key Escape
click 8 60
click 103 14
key alt+Return
dialog state
key Escape
click 8 60
press 20 8
for x in 30 40 50 60 72; do point "$x" "$x"; done
xdotool mouseup 1
away
part selection 20 6 60 66
click 8 60
key alt+e d
dialog defaults
key Escape
key ctrl+f
xdotool type 'light'
key Return
dialog find
key Escape
key alt+c p
dialog codegen
key Escape
key alt+c Down Return
xdotool key Return
settle 2
dialog generate
key Escape
quit

open "$charts/Door4.mrv"
away
part door4 2 2 120 76
quit

# Last, since it is left with a change that the next start would offer to recover
open "$root/Examples/Lift/FaultyLift.mrv"
xdotool mousemove 60 735 click 1
settle
away
whole lift-problem
xdotool mousemove 1176 735 click 1 # its quick fix
settle
key F9
settle 1
for _ in Call AtSpeed Near Level Opened Timeout; do second_event; done
page 1090 # Coverage
away
whole lift-coverage
quit
