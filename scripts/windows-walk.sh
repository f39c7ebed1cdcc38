#!/usr/bin/env bash
# Installs what scripts/windows.sh has packed under Wine, as a user does, and goes through the
# program on a display of its own: opens an example, draws states and a transition by the pointer,
# saves, exports, prints to a file, generates C++, takes a step back, is asked when it closes, and
# removes the program: windows-walk.sh [INSTALLER [FOLDER_FOR_PICTURES]]. Looks at what has come of
# each step, and fails if one went wrong.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
installers=("$root"/build/windows/Morvane-*-x64.exe)
installer=$(realpath "${1:-${installers[0]}}")
"$root/scripts/setup.sh" wine wine64 fonts-wine xvfb openbox xdotool imagemagick poppler-utils
source "$root/scripts/display.sh"
start_display 1360x900
[[ -z ${2:-} ]] || mkdir -p "$2"
pictures=${2:+$(realpath "$2")}
pictures=${pictures:-$work}

export WINEPREFIX=$work/wine WINEARCH=win64 WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
unset WINEPATH
drive=$WINEPREFIX/drive_c
trap 'wineserver -k 2>/dev/null || true; cleanup' EXIT

failed=0
check() { # check WHAT COMMAND...
  if "${@:2}" >/dev/null 2>&1; then
    echo "good: $1"
  else
    echo "WRONG: $1"
    failed=1
  fi
}
picture() { import -window root "$pictures/windows-$1.png"; }
key() { xdotool key --clearmodifiers "$1"; sleep 1; }
click() { xdotool mousemove "$1" "$2"; sleep 0.3; xdotool click 1; sleep 0.8; }
drag() {
  xdotool mousemove "$1" "$2"; sleep 0.3
  xdotool mousedown 1; sleep 0.3
  xdotool mousemove $((($1 + $3) / 2)) $((($2 + $4) / 2)); sleep 0.3
  xdotool mousemove "$3" "$4"; sleep 0.3
  xdotool mouseup 1; sleep 1
}
# The name of a file goes into a dialog that has just come up. Under Wine its end gives no window
# the keys, so the title of the main one is clicked.
answer() { sleep 2; key ctrl+a; xdotool type --delay 40 "$1"; key Return; sleep 2; click 600 12; }
wait_for() { # wait_for SECONDS COMMAND...
  local i
  for ((i = 0; i < $1; i++)); do
    "${@:2}" >/dev/null 2>&1 && return
    sleep 1
  done
}
registered() { wine reg query "HKCU\\Software\\Classes\\mrvfile\\shell\\open\\command" /ve | grep -q morvane.exe; }

wineboot --init >/dev/null 2>&1
# The font of the system's dialogs, which Debian keeps apart
mkdir -p "$drive/windows/Fonts" "$drive/charts"
cp /usr/share/wine/fonts/tahoma*.ttf "$drive/windows/Fonts/"
wineserver -k || true
wine "$installer" /S
place=$(find "$drive/users" -type d -path '*/Local/Programs/Morvane')
check "installed for the user" test -f "$place/bin/morvane.exe"
check "charts are a file type" registered
cp "$root/Examples/Lift/Lift.mrv" "$drive/charts/"

wine "$place/bin/morvane.exe" 'C:\charts\Lift.mrv' >/dev/null 2>&1 &
wait_for 60 xdotool search --onlyvisible --name 'Lift.mrv'
sleep 3
check "opens an example" xdotool search --onlyvisible --name 'Lift.mrv - Morvane'
picture window

click 600 12
key ctrl+p
answer 'C:\charts\Lift.pdf'
check "prints to a file" pdfinfo "$drive/charts/Lift.pdf"
drag 440 310 440 340 # a state, down
check "a change is marked" xdotool search --name 'Lift.mrv\* - Morvane'
key ctrl+z
check "and undone" xdotool search --name 'Lift.mrv - Morvane'

key ctrl+n
click 569 56; click 300 200 # states
click 569 56; click 700 200
drag 357 225 698 225
click 619 56; click 250 225 # the initial state
key ctrl+s
answer 'C:\charts\Pump.mrv'
check "saves what was drawn" test -s "$drive/charts/Pump.mrv"
transitions() { [[ $(grep -ci transition "$drive/charts/Pump.mrv") == 1 ]]; }
check "a transition" transitions

key ctrl+o
answer "$(winepath -w "$place/Examples/Socket_C++/Socket.mrv")"
key alt+f
key e
answer 'C:\charts\Socket.png'
check "exports a picture" identify "$drive/charts/Socket.png"
key alt+c
key Down
key Return
sleep 2
click 872 684
wait_for 20 test -s "$place/Examples/Socket_C++/SocketContext.cpp"
sleep 2
picture generate
check "generates code" test -s "$place/Examples/Socket_C++/SocketContext.cpp"
click 952 684
click 600 12

drag 250 330 250 370 # a state
key ctrl+q
sleep 2
picture question
check "asks before it closes" xdotool search --onlyvisible --name '^Morvane$'
key alt+n
wait_for 10 bash -c '! xdotool search --onlyvisible --name Morvane'
check "and is gone" bash -c '! pgrep -f "bin.[m]orvane.exe"'

rm -f "$place"/Examples/Socket_C++/SocketContext.*
wine "$place/Uninstall.exe" /CurrentUser /S
wait_for 20 test ! -e "$place"
check "uninstalls without leaving a file" test ! -e "$place"
check "nor the file type" bash -c "! wine reg query 'HKCU\\Software\\Classes\\.mrv'"
exit "$failed"
