#!/usr/bin/env bash
# Makes resources/splash/splash.bmp anew from its drawing: 387 by 242 pixels, at most 256 colours.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh" imagemagick
"$root/scripts/build.sh" release morvane_render

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$root/build/release/tools/morvane_render" "$root/resources/splash/splash.svg" "$work/splash.png" 387
convert "$work/splash.png" -background white -alpha remove -alpha off \
  -dither None -colors 256 -type Palette -compress none -strip BMP3:"$root/resources/splash/splash.bmp"
