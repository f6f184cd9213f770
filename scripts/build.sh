#!/usr/bin/env bash
# Installs what is missing and builds QX into build/ (or the folder given as $QX_BUILD_DIR).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/setup.sh"
build=${QX_BUILD_DIR:-$root/build}
cmake -S "$root" -B "$build" -G Ninja "$@" >/dev/null
cmake --build "$build"
