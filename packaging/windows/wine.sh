#!/usr/bin/env bash
# Runs a Windows program under Wine, with the libraries that it needs on its path:
# wine.sh PROGRAM [ARGUMENT...]. Wine keeps a folder of its own for it, not that of the user.
set -euo pipefail

libraries=${MORVANE_WINDOWS_LIBRARIES:-${XDG_CACHE_HOME:-$HOME/.cache}/morvane/windows}
compiler=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
runtime=/usr/x86_64-w64-mingw32/lib
export WINEPREFIX=${WINEPREFIX:-$libraries/wine}
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
export WINEPATH="$libraries/bin;$compiler;$runtime${WINEPATH:+;$WINEPATH}"
# Wine keeps what is meant for the toolkit of this machine from its programs.
for name in "${!QT_@}"; do
  export "WINE$name=${!name}"
done
exec wine "$@"
