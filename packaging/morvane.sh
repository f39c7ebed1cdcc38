#!/bin/sh
# Starts Morvane from its folder.
root=$(dirname "$(readlink -f "$0")")/../lib/morvane
exec "$root/bin/morvane" "$@"
