#!/usr/bin/env bash
# Installs what is missing, builds QX and runs the whole test suite: once in a normal build, once
# in a build with AddressSanitizer and UndefinedBehaviorSanitizer, and the link and host fuzzers
# for a bounded time each. `--quick` runs the normal build's tests only.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
quick=0
[ "${1:-}" = "--quick" ] && quick=1

build=${QX_BUILD_DIR:-$root/build}
QX_BUILD_DIR=$build bash "$root/scripts/build.sh"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
ctest --test-dir "$build" --output-on-failure --timeout 900 -j2 | tee "$log"
count() { grep -oE 'tests failed out of [0-9]+' "$log" | grep -oE '[0-9]+$' | tail -n 1; }
normal=$(count)
if [ $quick -eq 1 ]; then
  echo "qx: $normal passed, 0 failed"
  exit 0
fi

echo "== clang-tidy over the program's sources =="
bash "$root/scripts/tidy.sh" "$build"

echo "== The same suite under AddressSanitizer and UndefinedBehaviorSanitizer =="
asan=$root/build-asan
QX_BUILD_DIR=$asan bash "$root/scripts/build.sh" -DQX_SANITIZE=ON -DQX_BUILD_BENCHMARKS=OFF
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
LSAN_OPTIONS=suppressions=$root/tests/lsan.supp:print_suppressions=0 \
UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir "$asan" --output-on-failure --timeout 1800 -j2 | tee "$log"
sanitized=$(count)

echo "== The link fuzzer and the host fuzzer, bounded =="
fuzz=$root/build-fuzz
seconds=${QX_FUZZ_SECONDS:-60}
CC=clang CXX=clang++ cmake -S "$root" -B "$fuzz" -G Ninja -DQX_BUILD_FUZZERS=ON -DQX_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build "$fuzz" --target link_fuzzer host_fuzzer
mkdir -p "$fuzz/link-corpus" "$fuzz/host-corpus"
(cd "$fuzz" && bin/link_fuzzer -max_total_time="$seconds" -print_final_stats=1 \
  -dict="$root/net/link/fuzz/link.dict" link-corpus 2>&1 | tail -n 12)
echo "link fuzzer: no findings"
# Each input is a whole session of fake guests against the lobby and a game. Leaks are the
# sanitized suite's to find: Qt's font cache, filled inside some input, would read as one here.
(cd "$fuzz" && QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 bin/host_fuzzer -max_total_time="$seconds" -print_final_stats=1 \
  -timeout=60 -rss_limit_mb=1536 -max_len=2048 -detect_leaks=0 host-corpus "$root/net/lobby/fuzz/seeds" 2>&1 \
  | tail -n 12)
echo "host fuzzer: no findings"
echo "qx: $((normal + sanitized)) passed, 0 failed"
