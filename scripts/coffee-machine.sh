#!/usr/bin/env bash
# Draws a coffee machine by mouse, in a program that has only just started, on a display of its own:
# coffee-machine.sh [PICTURE [PROGRAM]]. Counts each command of xdotool, saves the chart and looks
# for all that should have come of it: eight states, two of them nested, with a history, ten
# transitions, one of them from a state to itself, six messages and two notes with lines. Prints
# both, takes a picture of the window, and fails unless all is there, within 150 commands.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
picture=$(realpath "${1:-coffee-machine.png}")
"$root/scripts/setup.sh" xvfb openbox xdotool imagemagick
if (($# > 1)); then
  program=$(realpath "$2")
else
  "$root/scripts/build.sh" release morvane
  program="$root/build/release/bin/morvane"
fi

source "$root/scripts/display.sh"
start_display 1500x1000
export HOME="$work" XDG_DATA_HOME="$work/data" XDG_STATE_HOME="$work/state"
touch "$work/Coffee.mrv"
open_chart "$work/Coffee.mrv" 1500 1000

actions=0
# act COMMAND...: one command of xdotool, and the time that a hand takes.
act() {
  xdotool "$@"
  actions=$((actions + 1))
  sleep 0.2
}
click() { # X Y [click's options]
  act mousemove "$1" "$2"
  act click "${@:3}" 1
}
# From one place to another with the button held. Each move is one command, as a hand's is.
drag() { # X Y X Y
  act mousemove "$1" "$2"
  act mousedown 1
  act mousemove "$3" "$4"
  act mouseup 1
}
keep_tool() { click "$1" 54 --repeat 2 --delay 60; }

readonly state=624 mark=678 note=732
# Where the upper left corners of states are dropped, which are 60 by 48 pixels large
declare -A at=([Off]="260 620" [Idle]="260 300" [Paying]="480 300" [Brewing]="700 220"
  [Grinding]="840 330" [Pouring]="1080 330" [Serving]="700 560" [Fault]="1100 680")

click $state 54
# shellcheck disable=SC2086
click ${at[Brewing]}
click 730 240
drag 760 268 1240 460 # the lower right handle
keep_tool $state
# shellcheck disable=SC2086
for name in Off Idle Paying Grinding Pouring Serving Fault; do click ${at[$name]}; done
keep_tool $mark
click 180 312
click 740 342
act key Escape

drag 204 324 260 324   # the mark to Idle
drag 320 324 480 324   # Idle to Paying
drag 495 300 525 300   # Paying to itself
drag 540 324 700 340   # Paying to Brewing
drag 764 354 840 354   # the inner mark to Grinding
drag 900 354 1080 354  # Grinding to Pouring
drag 835 460 730 560   # Brewing to Serving
drag 1105 460 1130 680 # Brewing to Fault
drag 700 584 290 348   # Serving to Idle
drag 1100 704 320 644  # Fault to Off

# name X Y NAME: by a double click on the band of a state's name. The next click takes it over.
name() {
  click "$1" "$2" --repeat 2 --delay 60
  act type "$3"
}
name 290 628 Off
name 290 308 Idle
name 510 308 Paying
name 870 338 Grinding
name 1110 338 Pouring
name 730 568 Serving
name 1130 688 Fault
name 970 228 Brewing
act key Return
act key alt+Return
sleep 1
act key alt+h
act key Return

# message X Y EVENT: of the transition whose route lies there
message() {
  click "$1" "$2"
  act key Return
  act type "$3"
}
message 400 324 coin
message 510 293 more
message 620 341 start
message 990 354 ground
message 732 515 done
message 1128 570 fail

keep_tool $note
click 220 440
click 1300 560
act key Escape
# note X Y TEXT X Y: what it says, and a line to the state at the second place
note() {
  click "$1" "$2" --repeat 2 --delay 60
  act type "$3"
  act keydown shift
  click "$4" "$5"
  act keyup shift
  act key ctrl+l
}
note 240 450 "Waits for a coin" 290 340
note 1320 570 "Goes on where it was left" 1000 240

xdotool key ctrl+s
sleep 1
import -window root "$picture"

# found WHAT COUNT EXPRESSION: how often it stands in the saved chart
missing=0
found() {
  local count
  count=$(tr -d '\r' <"$work/Coffee.mrv" | grep -cE "$3" || true)
  printf '%-40s %s of %s\n' "$1" "$count" "$2"
  ((count == $2)) || missing=1
}
found states 8 '^BEGIN GenericState'
found 'names of states' 8 '^(Off|Idle|Paying|Brewing|Grinding|Pouring|Serving|Fault)$'
found 'initial states' 2 '^BEGIN InitialState'
found 'history' 1 '^[1-9][0-9]* 12582911 0$'
found transitions 10 '^BEGIN Transition'
found messages 6 '^BEGIN Mesg'
found 'events of messages' 6 '^(coin|more|start|ground|done|fail)$'
found notes 2 '^BEGIN Note'
found 'texts of notes' 2 '^(Waits for a coin|Goes on where it was left)$'
found lines 2 '^BEGIN Line'
printf '%-40s %s of 150 at most\n' 'commands of xdotool' "$actions"
((missing == 0 && actions < 150))
