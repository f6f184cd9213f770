#!/usr/bin/env bash
# Installs what is missing, builds QX for release in build-package/ (or $QX_PACKAGE_DIR) and
# makes the Debian package qx_<version>_<arch>.deb there with cpack. Arguments go to cmake.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/setup.sh"
build=${QX_PACKAGE_DIR:-$root/build-package}

# Debian's own compiler and linker flags (hardening included) for the packaged program.
if [ ! -f "$build/CMakeCache.txt" ]; then
  export DEB_BUILD_MAINT_OPTIONS=hardening=+all
  eval "$(dpkg-buildflags --export=sh)"
  export CXXFLAGS="$CXXFLAGS $CPPFLAGS"
fi
# Only what the package holds is built: cpack's own build step (every target) is skipped.
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQX_BUILD_BENCHMARKS=OFF \
      -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON "$@" >/dev/null
cmake --build "$build" --target qx qx_sound_multimedia qx_assets qx_package_files
(cd "$build" && cpack -G DEB)
ls "$build"/qx_*.deb
