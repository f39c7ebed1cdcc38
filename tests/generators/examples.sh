#!/usr/bin/env bash
# Does what the README of the examples says, in a copy of them, and compares what is printed with
# what it promises: examples.sh EXAMPLES TOOLS, the folders of the examples and of the generators.
set -euo pipefail

examples=$1
tools=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$examples" "$work/Examples"
mkdir "$work/bin"
for tool in mrv2cpp mrv2c mrv2cs mrv2java mrv2xml; do
  ln -s "$tools/$tool.exe" "$work/bin/$tool"
done
export PATH="$work/bin:$PATH" HOME="$work"

fail() {
  echo "$*" >&2
  exit 1
}

# block NAME LANGUAGE: the lines of that kind of sample below the heading NAME
block() {
  awk -v heading="## $1" -v fence='```'"$2" '
    /^## / { here = $0 == heading }
    /^```/ { inside = here && $0 == fence; next }
    inside' "$work/Examples/README.md"
}

# Every folder with a program has its lines in the README.
for main in "$work"/Examples/*/[Mm]ain.*; do
  folder=${main%/*}
  name=${folder##*/}
  block "$name" sh >"$work/commands"
  block "$name" text >"$work/expected"
  [[ -s $work/commands && -s $work/expected ]] || fail "README.md says nothing of $name"
  (cd "$folder" && bash -euo pipefail "$work/commands") >"$work/printed" ||
    fail "$name: a command failed"
  diff -u --label promised --label printed "$work/expected" "$work/printed" ||
    fail "$name prints something else"
  echo "$name: $(wc -l <"$work/printed") lines as promised"
done
for tool in mrv2cpp mrv2c mrv2cs mrv2java mrv2xml; do
  grep -q "^$tool " "$work/Examples/README.md" || fail "no example for $tool"
done
