#!/usr/bin/env bash
# Goes the way of the tutorial's chapter about mistakes with a real mouse on a display of its own: the
# problem and its quick fix, the run, the event that is never handled, the mistake mended, the run
# kept as a test. In light and dark colours, at the usual scale and at twice that.
# faulty-lift.sh [FOLDER_FOR_PICTURES [PROGRAM]]
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh" xvfb openbox xdotool imagemagick
pictures=$(realpath -m "${1:-$root/build/release/faulty-lift}")
if (($# > 1)); then
  program=$(realpath "$2")
else
  "$root/scripts/build.sh" release morvane
  program="$root/build/release/bin/morvane"
fi
source "$root/scripts/display.sh"
mkdir -p "$pictures"
export HOME="$work" XDG_DATA_HOME="$work/data" XDG_STATE_HOME="$work/state"

# What a desktop in dark colours tells its programs
dark_desktop() {
  export XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5 KDE_FULL_SESSION=true
  mkdir -p "$XDG_CONFIG_HOME"
  local part
  {
    printf '[General]\nColorScheme=Dark\n'
    for part in Window:42,46,50 View:27,30,32 Button:49,54,59 Selection:61,120,180; do
      printf '[Colors:%s]\nBackgroundNormal=%s\nForegroundNormal=252,252,252\n' \
        "${part%:*}" "${part#*:}"
    done
  } >"$XDG_CONFIG_HOME/kdeglobals"
}

at() { echo $(($1 * scale)) $(($2 * scale)); }
click() { # X Y [click's options]: pixels of the window at the usual scale
  # shellcheck disable=SC2046
  xdotool mousemove --window "$window" $(at "$1" "$2") click "${@:3}" 1
  sleep 0.7
}
key() {
  xdotool key "$@"
  sleep 0.7
}
look() { import -silent -window "$window" "$pictures/$look-${scale}x-$1.png"; }
dialog() { import -silent -window "$(xdotool getactivewindow)" "$pictures/$look-${scale}x-$1.png"; }
readonly first=219 pitch=24 # the buttons of events
button() { click 1090 $((first + ($1 - 1) * pitch)); }

try() { # LOOK SCALE
  look=$1
  scale=$2
  rm -rf "$work/config" "$work/display"
  start_display "$((1240 * scale))x$((801 * scale + 19))" # without the title bar the same
  export QT_SCALE_FACTOR=$scale
  if [[ $look == dark ]]; then dark_desktop; fi
  local chart="$work/$look$scale.mrv"
  cp "$root/Examples/Lift/FaultyLift.mrv" "$chart"
  "$program" --new-instance "$chart" &
  app=$!
  jobs=("$app" "${jobs[@]}")
  sleep 3
  window=$(timeout 30 xdotool search --sync --onlyvisible --pid "$app" --name "${chart##*/}" | tail -n 1)
  # shellcheck disable=SC2046
  xdotool windowmove "$window" 0 0 windowsize "$window" $(at 1240 801)
  sleep 1
  click 1232 58 # the chart browser goes
  click 60 713
  look problem
  click 1176 713 # the quick fix
  key F9
  for _ in Call AtSpeed Near Level Opened Timeout; do button 2; done
  look run
  button 10 # Blocked, which is ignored
  click 1090 195
  look coverage
  key F9
  # The view is where it was before the run.
  click 1100 220 --repeat 2 --delay 80
  sleep 0.5
  dialog message
  key alt+g
  key ctrl+a
  xdotool type 'tries < 2'
  key Return
  key ctrl+s
  key F9
  # Now it stands in front, too.
  for _ in Call AtSpeed Near Level Opened Timeout Blocked; do button 2; done
  click 1158 195
  click 1054 220 # Record...
  xdotool type 'The door opens again'
  key Return
  sleep 0.5
  look tests
  kill "$app"
  wait "$app" 2>/dev/null || true
  judge "$chart"
}

# What the user has by now: a sound chart, a test that passes, and that fails with the mistake in it.
judge() { # CHART
  "$program" --check "$1"
  "$program" --test "$1"
  grep -q 'send Blocked' "${1%.mrv}.mrvtest"
  sed 's/^tries < 2/tries > 2 \&\& tries < 2/' "$1" >"$work/Mistake.mrv"
  cp "${1%.mrv}.mrvtest" "$work/Mistake.mrvtest"
  if "$program" --test "$work/Mistake.mrv" >/dev/null; then
    echo "the test doesn't notice the mistake" >&2
    exit 1
  fi
  echo "$look, scale $scale: mistake found, mended, and kept out by a test"
}

for kind in light dark; do
  for times in 1 2; do try "$kind" "$times"; done
done
