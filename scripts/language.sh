#!/usr/bin/env bash
# Sets the language of the user's Morvane profile to English where none is set. Whatever else the
# profile holds stays as it is.
set -euo pipefail

profile="${XDG_CONFIG_HOME:-$HOME/.config}/Halvern/Morvane.ini"
mkdir -p "$(dirname "$profile")"
[[ -e $profile ]] || : >"$profile"

# Keys above the first section count as part of [General].
if awk '
  /^[[:space:]]*\[/ { section = tolower($0); gsub(/[[:space:]\r]/, "", section) }
  (section == "" || section == "[general]") && /^[[:space:]]*Language[[:space:]]*=/ { found = 1 }
  END { exit !found }' "$profile"; then
  exit 0
fi

changed=$(mktemp)
trap 'rm -f "$changed"' EXIT
if grep -qi '^[[:space:]]*\[general\]' "$profile"; then
  awk '{ print } !done && tolower($0) ~ /^[[:space:]]*\[general\]/ { print "Language=eng"; done = 1 }' \
    "$profile" >"$changed"
else
  { printf '[General]\nLanguage=eng\n'; [[ -s $profile ]] && { echo; cat "$profile"; }; } \
    >"$changed" || true
fi
cat "$changed" >"$profile"
