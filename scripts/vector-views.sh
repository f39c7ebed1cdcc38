#!/usr/bin/env bash
# Shows how other programs see the vector pictures of charts: vector-views.sh [FOLDER [FILE...]].
# For each chart FOLDER gets a picture with the program's own PNG and, side by side with it, its SVG,
# EMF and PDF as Inkscape, LibreOffice, Chromium, Poppler and MuPDF show them. Without a chart, the
# one of all features. Look at the pictures; nothing is compared.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
folder=$(realpath -m "${1:-$root/build/vector-views}")
charts=("${@:2}")
((${#charts[@]})) || charts=("$root/tests/golden/Features.mrv")
"$root/scripts/setup.sh" inkscape libreoffice-draw chromium mupdf-tools imagemagick
"$root/scripts/build.sh" release morvane
program=$root/build/release/bin/morvane

work=$(mktemp -d -t morvane.XXXX)
trap 'rm -rf "$work"' EXIT
# The programs find no settings of this user, and leave none.
export HOME=$work XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work
limit=(timeout 120)

# view NAME COMMAND...: runs what makes $work/NAME.png, and makes it as large as all others.
view() {
  local name=$1
  shift
  if ! "${limit[@]}" "$@" >"$work/log" 2>&1 || [[ ! -s $work/$name.png ]]; then
    echo "$name: no picture" >&2
    cat "$work/log" >&2
    return
  fi
  convert "$work/$name.png" -background white -flatten -trim +repage -resize "$size" \
    -bordercolor white -border 10 "$work/$name.png"
  views+=(-label "$name" "$work/$name.png")
}

mkdir -p "$folder"
for chart in "${charts[@]}"; do
  rm -f "$work"/*.png
  for kind in png svg emf pdf; do
    "${limit[@]}" "$program" --export "$work/chart.$kind" "$chart"
  done
  width=$(identify -format %w "$work/chart.png")
  height=$(identify -format %h "$work/chart.png")
  size=${width}x${height}
  views=()
  cp "$work/chart.png" "$work/morvane-png.png"
  view morvane-png true
  view inkscape-svg inkscape --export-type=png --export-filename="$work/inkscape-svg.png" \
    "$work/chart.svg"
  view chromium-svg chromium --headless --no-sandbox --disable-gpu --hide-scrollbars \
    --window-size="$width,$height" --screenshot="$work/chromium-svg.png" "$work/chart.svg"
  view poppler-pdf pdftoppm -r 96 -png -singlefile "$work/chart.pdf" "$work/poppler-pdf"
  view mupdf-pdf mutool draw -q -r 96 -o "$work/mupdf-pdf.png" "$work/chart.pdf"
  view inkscape-emf inkscape --export-type=png --export-filename="$work/inkscape-emf.png" \
    "$work/chart.emf"
  mkdir -p "$work/office"
  view office-emf sh -c "soffice --headless --convert-to png:draw_png_Export --outdir \
    '$work/office' '$work/chart.emf' && mv '$work/office/chart.png' '$work/office-emf.png'"
  name=$(basename "${chart%.*}")
  montage "${views[@]}" -tile 2x -geometry +4+4 "$folder/$name.png"
  pdftotext -layout "$work/chart.pdf" "$folder/$name.txt"
  mutool show "$work/chart.pdf" outline >"$folder/$name-outline.txt"
  echo "$folder/$name.png"
done
