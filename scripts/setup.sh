#!/usr/bin/env bash
# Installs what building and running Morvane needs on Debian 12. Asks dpkg first, so that a machine
# that has everything needs neither network nor rights.
set -euo pipefail

packages=(
  g++ cmake ninja-build ccache
  qt6-base-dev qt6-svg-dev
  qt6-declarative-dev  # runs the texts of a chart that is simulated
  nlohmann-json3-dev
  libqt6svg6           # also the plugins that draw SVG icons
  libqscintilla2-qt6-dev # the boxes of code
  libgraphviz-dev      # places the states of a chart
  libpugixml-dev       # reads XML
  libharfbuzz-dev pkgconf # cuts fonts down to the letters that a PDF needs
  zlib1g-dev           # compresses pictures
  fonts-dejavu-core    # stands in for Verdana
  fonts-noto-core fonts-droid-fallback # letters of all scripts, for the tests
  qt6-translations-l10n # the toolkit's own texts in the languages of the program
  poppler-utils        # shows the tests what a document's pages look like
  libgtest-dev libbenchmark-dev
  # Compile and run what the generators write, in the tests
  gcc clang default-jdk-headless mono-mcs mono-runtime libmono-system4.0-cil
  libmono-system-core4.0-cil
  qt6-scxml-dev
  desktop-file-utils appstream shared-mime-info # check what the desktop reads
  clang-format
  "$@"
)
if [[ -n ${WAYLAND_DISPLAY:-} && -z ${DISPLAY:-} ]]; then
  packages+=(qt6-wayland)
fi

if ! command -v dpkg-query >/dev/null; then
  echo "No dpkg here; please install the equivalents of: ${packages[*]}" >&2
  exit 0
fi

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [[ $status == installed ]] || missing+=("$package")
done
((${#missing[@]})) || exit 0

as_root=()
if ((EUID != 0)); then
  if ! command -v sudo >/dev/null; then
    echo "Missing packages, and neither root nor sudo to install them: ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y --no-install-recommends "${missing[@]}"
