#!/usr/bin/env bash
# Every test: installs what is missing, builds the host, sanitizer and MIPS tiers and the JVM
# classes, and runs all of them in one ctest run.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
source "$here/scripts/packages.sh"
bash "$here/scripts/ensure-packages.sh" "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

build=${BUILD_DIR:-$here/build}
cmake -S "$here" -B "$build"
cmake --build "$build" -j"$(nproc)"
cd "$build"
# Side by side: every test program and JVM entry has its own folder for the gateway's flag
# files (BRELO_SIM_FLAG_DIR), so no test sees another's.
ctest --output-on-failure -j"$(nproc)"
echo "== library sizes"
cat "$build/library-size.txt" "$build"/tier-*/library-size.txt 2>/dev/null || true
echo "== bundle_sc-capture: stripped size and run time on the default gateway (a package of its own)"
grep -h "stripped\|run time" "$build/capture-size.txt" "$build"/tier-*/capture-size.txt 2>/dev/null || true
echo "== stack frames (the build fails on any frame above the bound)"
cat "$build/frame-sizes.txt" "$build"/tier-*/frame-sizes.txt 2>/dev/null || true
