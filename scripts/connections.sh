#!/usr/bin/env bash
# Draws connections between two states as somebody does who looks at the border and not at the
# pixel: it presses and lets go at, beside and between the anchors, at several zooms, on a display of
# its own. connections.sh [COUNT [PROGRAM]], 20 at each zoom at first. Prints how many were made at
# the first try and how many moved a state instead. Fails unless all were made.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
count=${1:-20}
zooms=(3 6 12)
"$root/scripts/setup.sh" xvfb openbox xdotool imagemagick
if (($# > 1)); then
  program=$(realpath "$2")
else
  "$root/scripts/build.sh" release morvane install_layout
  program="$root/build/release/bin/morvane"
fi

source "$root/scripts/display.sh"
start_display 1240x820

# Where the corner of the paper stands on the screen when the window fills it, and a place where
empty="700 760"

# The states in model units: left, top, right, bottom
first=(6 6 20 17)
second=(40 28 54 39)
# How far beside an anchor a hand presses, across the border and along it, in pixels
across=(0 -1 1 -3 3 -5 5 -7 7)
along=(0 2 -3 5 -6)

# write_chart FILE ZOOM: the two states and nothing else
write_chart() {
  local state id=1
  {
    printf '9999 4 1\n%s\nBEGIN DATA\n' "$2"
    for state in "${first[*]}" "${second[*]}"; do
      printf 'BEGIN GenericState %s\n%s 10\n%s\n1\nS%s\n0 %s 0\n' $id $id "$state" $id \
        $((id == 1 ? 8453888 : 16777215))
      printf '0\nTEXTBEGIN\n\nTEXTEND\n0\nTEXTBEGIN\n\nTEXTEND\n'
      id=$((id + 1))
    done
    sed -n '/^END DATA/,$p' "$root/Examples/Lift/Lift.mrv" | tr -d '\r'
  } | sed 's/$/\r/' >"$1"
}

# find_paper: where on the screen the chart begins, by the colour of the first state, whose border is
# a pixel wide. The fonts of a machine decide how large the bars and panes beside it are.
find_paper() {
  local x y
  import -window root "$work/screen.png"
  read -r x y < <(convert "$work/screen.png" -fill black +opaque '#00ff80' -trim \
    -format '%X %Y\n' info:)
  paper_x=$((x - 1 - first[0] * zoom))
  paper_y=$((y - 1 - first[1] * zoom))
}

# place N LEFT TOP RIGHT BOTTOM: where try N touches the border of a state, on the screen
place() {
  local n=$1 side=$(($1 % 4)) anchor=$(($1 / 4 % 3 + 1))
  local far=${across[n % ${#across[@]}]} beside=${along[n % ${#along[@]}]}
  local x y
  case $side in
    0 | 2)
      x=$((($2 * 4 + ($4 - $2) * anchor) * zoom / 4 + beside))
      y=$(((side == 0 ? $3 : $5) * zoom + far))
      ;;
    *)
      x=$(((side == 1 ? $2 : $4) * zoom + far))
      y=$((($3 * 4 + ($5 - $3) * anchor) * zoom / 4 + beside))
      ;;
  esac
  echo $((paper_x + x)) $((paper_y + y))
}

# drag X Y X Y: with the pauses of a quick hand
drag() {
  xdotool mousemove $(($1 + 40)) $(($2 - 30)) sleep 0.05 mousemove "$1" "$2" sleep 0.1 mousedown 1 \
    sleep 0.05 mousemove $((($1 + $3) / 2)) $((($2 + $4) / 2)) sleep 0.05 \
    mousemove $(($3 - 2)) $(($4 - 2)) sleep 0.05 mousemove "$3" "$4" sleep 0.1 mouseup 1
}

# try N: one connection, counted by what it left in the file, and taken back
try() {
  drag $(place "$1" "${first[@]}") $(place $(($1 * 5 + 3)) "${second[@]}")
  xdotool key ctrl+s
  for ((wait = 0; wait < 20; wait++)); do
    sleep 0.1
    if ! cmp -s "$chart" "$work/untouched"; then break; fi
  done
  tr -d '\r' <"$chart" >"$work/saved"
  # The third line of a transition's record names its ends; a free one is 0.
  if grep -A 3 '^BEGIN Transition' "$work/saved" | tail -n 1 | grep -q '^[1-9].* [1-9]'; then
    made=$((made + 1))
  fi
  if [[ $(grep -cxF -e "${first[*]}" -e "${second[*]}" "$work/saved") != 2 ]]; then
    moved=$((moved + 1))
  fi
  xdotool key ctrl+z sleep 0.1 key Escape key ctrl+s
  sleep 0.3
}

total=0
all=0
for zoom in "${zooms[@]}"; do
  made=0
  moved=0
  chart="$work/Connections$zoom.mrv"
  write_chart "$chart" "$zoom"
  cp "$chart" "$work/untouched"
  # What one run leaves unsaved must not be on offer at the start of the next.
  export XDG_STATE_HOME="$work/state$zoom"
  open_chart "$chart" 1240 820
  xdotool mousemove $empty click 1 sleep 0.5
  find_paper
  for ((n = 0; n < count; n++)); do try "$n"; done
  kill "$app"
  wait "$app" 2>/dev/null || true
  echo "zoom $zoom: $made of $count connections made, $moved moved a state"
  total=$((total + made))
  all=$((all + count))
done
echo "all: $total of $all connections made"
((total == all))
