#!/bin/sh
# Starts Morvane from its folder in the bundle.
contents=$(cd "$(dirname "$0")/.." && pwd)
exec "$contents/lib/morvane/bin/morvane" "$@"
