#!/usr/bin/env bash
# Installs what is missing, builds QX and starts it.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/build.sh"
exec "${QX_BUILD_DIR:-$root/build}/bin/qx" "$@"
