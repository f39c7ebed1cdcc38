#!/usr/bin/env bash
# Compares what the program writes here and on Windows, under Wine: every chart of the examples,
# the tests and the fuzz targets, converted, drawn as SVG, EMF, PDF and PNG with the same fonts, and
# turned into code by each of the five generators: same-bytes.sh [PROGRAM [WINDOWS_PROGRAM]].
# What both refuse must be refused with the same words. Prints a table, and fails on a difference,
# but for the pictures of one chart: the toolkit has no dictionary of Thai on Windows.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
here=$(realpath "${1:-$root/build/release/bin/morvane}")
there=$(realpath "${2:-$root/build/windows/bin/morvane.exe}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home XDG_CACHE_HOME=${XDG_CACHE_HOME:-$HOME/.cache}
mkdir "$HOME"
# The same letters on both sides, and no others
fonts=/usr/share/fonts/truetype/dejavu
export QT_QPA_FONTDIR=$fonts
cat >"$work/fonts.conf" <<CONF
<?xml version="1.0"?>
<fontconfig>
  <dir>$fonts</dir>
  <cachedir>$work/fonts</cachedir>
  <alias><family>Verdana</family><prefer><family>DejaVu Sans</family></prefer></alias>
</fontconfig>
CONF
export FONTCONFIG_FILE=$work/fonts.conf LC_ALL=C.UTF-8 TZ=UTC

# run SIDE JOB CHART: does a job in a folder of its own; its words and status go into files there.
run() {
  local side=$1 job=$2 chart=$3 status=0 program=("$here")
  local folder=$work/$side/$job/$(basename "$chart")
  [[ $side == here ]] || program=("$root/packaging/windows/wine.sh" "$there")
  mkdir -p "$folder"
  case $job in
    convert) "${program[@]}" --convert "$folder/out.mrv" "$chart" ;;
    svg | emf | pdf | png) "${program[@]}" --export "$folder/out.$job" "$chart" ;;
    *) "${program[@]}" --generate "$job" -o "$folder" "$chart" ;;
  esac >"$folder/words" 2>&1 </dev/null || status=$?
  sed -i "s|$folder|OUT|g; s|\\\\|/|g; s|\r$||" "$folder/words"
  echo "status $status" >>"$folder/words"
}
export -f run
export work here there root

# What it says when it sets itself up belongs to no job.
"$root/packaging/windows/wine.sh" wineboot --init >/dev/null 2>&1

mkdir "$work/charts"
while IFS= read -r chart; do
  name=${chart#"$root"/}
  cp "$chart" "$work/charts/${name//\//_}"
done < <(find "$root/Examples" "$root/tests" -name '*.mrv'; find "$root"/fuzz/corpus/{model,machine,generator} -type f)

different=0
printf '%-8s %6s %6s %9s\n' job charts same "refused"
for job in convert svg emf pdf png cpp c cs java xml; do
  for side in here there; do
    find "$work/charts" -type f -print0 |
      xargs -0 -P "$(nproc)" -I{} bash -c 'run "$@"' run "$side" "$job" {}
  done
  total=0 same=0 refused=0
  for folder in "$work/here/$job"/*; do
    total=$((total + 1))
    if diff -r "$folder" "$work/there/$job/${folder##*/}" >"$work/difference" 2>&1; then
      same=$((same + 1))
      grep -q '^status 0$' "$folder/words" || refused=$((refused + 1))
    elif [[ $folder == */tests_golden_Scripts.mrv && $job =~ ^(svg|emf|pdf|png)$ ]]; then
      echo "different, as lines of Thai end elsewhere: $job ${folder##*/}" >&2
    else
      different=1
      echo "different: $job ${folder##*/}: $(head -c 300 "$work/difference" | tr '\n' ' ')" >&2
    fi
  done
  printf '%-8s %6d %6d %9d\n' "$job" "$total" "$same" "$refused"
done
exit "$different"
