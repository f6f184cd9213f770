#!/usr/bin/env bash
# Runs clang-tidy with the project's .clang-tidy over the program's own sources (not the tests),
# using the compile commands of a configured build folder; any finding fails.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
cd "$root"
git ls-files '*.cpp' | grep -vE '^(tests|bench)/|/fuzz/' \
  | xargs -P "$(nproc)" -n 4 clang-tidy -p "$build" --quiet 2>&1 \
  | grep -vE '^[0-9]+ warnings generated|^Suppressed [0-9]+ warnings|^Use -header-filter|NOLINT' \
  | tee "$build/clang-tidy.log" || true
if grep -qE '(warning|error):' "$build/clang-tidy.log"; then
  echo "clang-tidy: findings above" >&2
  exit 1
fi
echo "clang-tidy: clean"
