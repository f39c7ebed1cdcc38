#!/usr/bin/env bash
# Takes docs/morvane.png anew: the designer with the Socket example, on a display of its own.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh" xvfb openbox xdotool imagemagick
"$root/scripts/build.sh" release morvane install_layout

source "$root/scripts/display.sh"
start_display 1600x1120
program="$root/build/release/bin/morvane"
open_chart "$root/Examples/Socket_C++/Socket.mrv" 1600 1120
import -frame -window "$window" "$root/docs/morvane.png"
