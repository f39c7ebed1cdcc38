# Sourced by the scripts that take pictures: the program on a display and with settings of its own.

work=$(mktemp -d -t morvane.XXXX)
jobs=()
cleanup() {
  for job in "${jobs[@]}"; do kill "$job" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT

# Bars and panes are as large on every machine, whatever fonts there are besides this one.
choose_font() {
  mkdir -p "$XDG_CONFIG_HOME/fontconfig"
  {
    echo '<fontconfig>'
    for family in sans-serif 'Sans Serif'; do
      printf '<match><test name="family"><string>%s</string></test>' "$family"
      printf '<edit name="family" mode="prepend" binding="strong">'
      printf '<string>DejaVu Sans</string></edit></match>\n'
    done
    echo '</fontconfig>'
  } >"$XDG_CONFIG_HOME/fontconfig/fonts.conf"
}

# start_display SIZE: a display with a window manager, until the script ends; what belongs to it is
# in the folder $work.
start_display() {
  local number
  mkfifo "$work/display"
  Xvfb -displayfd 3 -screen 0 "$1x24" 3>"$work/display" 2>/dev/null &
  jobs+=($!)
  read -r number <"$work/display"
  # The pictures show the program in English.
  export DISPLAY=":$number" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work" LC_ALL=C.UTF-8
  # What one run leaves behind is offered by no other.
  export XDG_DATA_HOME="$work/data" XDG_STATE_HOME="$work/state"
  unset WAYLAND_DISPLAY
  choose_font
  openbox >/dev/null 2>&1 &
  jobs+=($!)
}

# open_chart FILE WIDTH HEIGHT: starts $program on a chart, in a window of that size in the corner of
# the screen: $app, $window. The chart browser, which shows the folders of this machine, is closed.
open_chart() {
  "$program" "$1" &
  app=$!
  jobs=("$app" "${jobs[@]}")
  sleep 2 # until the splash has gone: windows that come and go end a search
  window=$(timeout 30 xdotool search --sync --onlyvisible --pid "$app" --name "${1##*/}" | tail -n 1)
  xdotool windowmove "$window" 0 0 windowsize "$window" "$2" "$3"
  sleep 1
  xdotool mousemove "$(($2 - 8))" 80 click 1
  sleep 1
}
