#!/usr/bin/env bash
# Compiles one source by way of the compiler's cache; the build calls it: compile.sh COMPILER ARG...
# Beside each precompiled header it leaves the sum of what that was made from. The cache takes the
# sum for the header, which has hundreds of megabytes to be read anew for each source, and finds in
# one clone what another has compiled.
set -euo pipefail

# Of the compiler, the text of the header with the macros that it leaves, and the options, whatever
# folder the clone lies in
sum_of_header() {
  { "$1" --version && "$@" -E -dD && printf '%s\n' "$@"; } |
    ROOT=${CCACHE_BASEDIR:-$PWD} perl -pe 's/\Q$ENV{ROOT}//g' | sha256sum
}

for ((place = 1; place < $#; place++)); do
  # Clang's hold the times of files, which no other clone has.
  [[ ${!place} != *.pch ]] || exec "$@"
  output=${*:place+1:1}
  [[ ${!place} == -o && $output == *.gch ]] || continue
  "$@"
  sum=$(sum_of_header "${@:1:place-1}" "${@:place+2}")
  echo "$sum" >"$output.sum"
  exit
done
# What the compiler itself says that a source includes is enough for the cache.
export CCACHE_DEPEND=1 CCACHE_PCH_EXTSUM=1 CCACHE_SLOPPINESS=pch_defines,time_macros
exec ccache "$@"
