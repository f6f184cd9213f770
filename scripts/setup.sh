#!/usr/bin/env bash
# Installs every Debian package QX needs to build, test and run; skips what is already there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  clang clang-tidy libclang-rt-14-dev
  qt6-base-dev qt6-base-dev-tools qt6-multimedia-dev qt6-qpa-plugins
  qt6-l10n-tools qt6-translations-l10n  # lupdate and lrelease; Qt's own texts (Yes, No, Cancel) in each language
  libgl-dev libxkbcommon-dev
  libbenchmark-dev
  fonts-dejavu-core
  xvfb xauth xdotool imagemagick x11-utils
  iproute2  # the end-to-end game across two network namespaces (skipped without it)
  dpkg-dev file appstream lintian
  openbox qt6ct
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
