#!/bin/sh
# Starts Morvane from its folder. Before a user's first window it sets the language, so that the
# program need not ask for it.
root=$(dirname "$(readlink -f "$0")")/../lib/morvane
case ${1-} in
  --*) ;;
  *) "$root/language.sh" || true ;;
esac
exec "$root/bin/morvane" "$@"
