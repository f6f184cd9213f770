#!/usr/bin/env bash
# Installs what is missing, builds QX and runs the whole test suite.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/build.sh"
cd "${QX_BUILD_DIR:-$root/build}"
ctest --output-on-failure --timeout 900 -j2
