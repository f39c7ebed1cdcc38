#!/usr/bin/env bash
# Installs a build into a folder of its own, and builds and runs a project there that generates
# code from a chart: check-project.sh BUILD_FOLDER
set -euo pipefail

build=$1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
DESTDIR="$work/stage" cmake --install "$build" --prefix /usr >/dev/null

fail() {
  echo "$*" >&2
  exit 1
}

cp -r "$here/project" "$work"
cmake -S "$work/project" -B "$work/build" -G Ninja -DCMAKE_PREFIX_PATH="$work/stage/usr" \
  -DCMAKE_BUILD_TYPE=Release >"$work/log" || fail "$(cat "$work/log")"
run() {
  cmake --build "$work/build" >"$work/log" || fail "$(cat "$work/log")"
  "$work/build/lamp_c" && "$work/build/lamp_cpp"
}
said=$(run)
[[ $said == $'c on off\ncpp on off' ]] || fail "it said: $said"
[[ -s $work/build/lamp_xml_chart/Lamp.scxml ]] || fail "no SCXML"

# A second build does nothing; a changed chart is generated again.
cmake --build "$work/build" | grep -q "no work to do" || fail "built again without a change"
sed -i 's/say("on")/say("ON")/' "$work/project/Lamp.mrv"
said=$(run)
[[ $said == $'c ON off\ncpp ON off' ]] || fail "after the change it said: $said"

# An error in a chart stops the build with its place.
sed -i 's/^Press\r$/Press me!\r/' "$work/project/Lamp.mrv"
if cmake --build "$work/build" >"$work/log" 2>&1; then fail "a broken chart was built"; fi
grep -q 'Lamp.mrv:[0-9]*: error: ' "$work/log" || fail "no place: $(cat "$work/log")"
