#!/usr/bin/env bash
# Installs a build into a folder of its own and looks at everything there that the desktop reads:
# check.sh BUILD_FOLDER
set -euo pipefail

build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config"
mkdir -p "$XDG_CONFIG_HOME"
root="$work/stage/usr"
DESTDIR="$work/stage" cmake --install "$build" --prefix /usr >/dev/null

fail() {
  echo "$*" >&2
  exit 1
}

desktop-file-validate --no-hints "$root/share/applications/morvane.desktop"
appstreamcli validate --no-net --nonet "$root"/share/metainfo/*.xml >"$work/appstream" ||
  fail "$(cat "$work/appstream")"

# The type of a chart, by its name and by its first bytes
update-mime-database "$root/share/mime"
grep -q ':application/x-morvane:\*\.mrv$' "$root/share/mime/globs2" || fail "no glob for charts"
grep -qa 'application/x-morvane' "$root/share/mime/magic" || fail "no magic for charts"
type=$(sed -n 's/^MimeType=\(.*\);$/\1/p' "$root/share/applications/morvane.desktop")
[[ -f $root/share/mime/$type.xml ]] || fail "the desktop entry names an unknown type: $type"

# File managers start this for a small picture of a chart, whose file has a name of their own.
thumbnailer="$root/share/thumbnailers/morvane.thumbnailer"
grep -qx "MimeType=$type;" "$thumbnailer" || fail "the thumbnailer is for another type"
grep -q '^Exec=morvane .*%s.* %o %i$' "$thumbnailer" || fail "the thumbnailer lacks its fields"

for kind in apps/morvane mimetypes/application-x-morvane; do
  for size in 16 22 24 32 48 64 128 256; do
    icon="$root/share/icons/hicolor/${size}x$size/$kind.png"
    # Bytes 16 to 23 of a PNG file are its width and its height.
    found=$(od -An -tu1 -j16 -N8 "$icon" | awk '{ print $3 * 256 + $4, $7 * 256 + $8 }')
    [[ $found == "$size $size" ]] || fail "$icon is $found"
  done
  [[ -s $root/share/icons/hicolor/scalable/$kind.svg ]] || fail "no scalable icon $kind"
done

# The program from its start script, and what it looks for beside itself
version=$("$root/bin/morvane" --version)
[[ $version == Morvane\ [0-9]* ]] || fail "the start script answers: $version"
number=${version#Morvane }
# What tells of the releases has a place for this one.
release=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$root"/share/metainfo/*.xml | sed -n 1p)
[[ $release == "$number" ]] || fail "$version, but the metainfo begins with $release"
zcat "$root/share/doc/morvane/changelog.gz" | sed -n 1p | grep -F "($number)" >/dev/null ||
  fail "$version, but the package's changelog begins with another one"
zcat "$root/share/man/man1/morvane.1.gz" | sed -n 1p | grep -F "\"$version\"" >/dev/null ||
  fail "$version, but the manual page is of another one"
[[ ! -e $XDG_CONFIG_HOME/Halvern ]] || fail "a job has changed the profile"
for file in bin/_sp.mo bin/lang{fra,ger,esp,jpn}.dll Docs/Morvane-{UserGuide,Tutorial}.pdf \
  Examples/Socket_C++/{Socket.mrv,main.cpp} Examples/README.md; do
  [[ -s $root/lib/morvane/$file ]] || fail "not installed: $file"
done
for tool in mrv2cpp mrv2c mrv2cs mrv2java mrv2xml; do
  [[ $("$root/bin/$tool" --version) == "$tool $number" ]] || fail "$tool doesn't run"
  zcat "$root/share/man/man1/$tool.1.gz" | sed -n 1p | grep -F "\"$version\"" >/dev/null ||
    fail "no manual page of $tool"
  "$root/bin/$tool" --check "$root/lib/morvane/Examples/Socket_C++/Socket.mrv" ||
    fail "$tool finds something in an example"
done
"$root/bin/morvane" --export "$work/chart.png" "$root/lib/morvane/Examples/Socket_C++/Socket.mrv"
[[ -s $work/chart.png ]] || fail "the installed program draws nothing"
