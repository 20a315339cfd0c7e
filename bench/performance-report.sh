#!/usr/bin/env bash
# Every performance figure of the README in one run, as Markdown on standard output:
#   1. the JVM benchmark: every native against its floor (bench/run-jvm-bench.sh);
#   2. the LAN host queries with 16, 64 and 256 hosts in a real JVM (LanHostsBench);
#   3. the instruction counts of the heavy natives at two sizes, with the linearity check
#      (bench/run-callgrind-heavy.sh);
#   4. the simulator's share of every native's instructions (bench/sim_share.sh --warm);
#   5. the stripped library of the flash configuration for MIPS against its budget (a build
#      configured with the MIPS toolchain; it is built here if given and not built yet).
#
#   bench/performance-report.sh <bench-build-dir> <mips-build-dir>
# The bench build: cmake -S . -B <dir> -DBUNDLE_BENCH=ON -DBUNDLE_TIERS=OFF (JVM classes on).
# The MIPS build: cmake -S . -B <dir> -DCMAKE_TOOLCHAIN_FILE=cmake/mips-linux-gnu.cmake
#                 -DCMAKE_BUILD_TYPE=MinSizeRel -DBUILD_TESTING=OFF -DBUNDLE_TIERS=OFF
#                 -DBUNDLE_JVM_TESTS=OFF
# Remove /tmp/brelo_debug first; the machine should be otherwise idle.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
bench=$(cd "${1:?bench build dir}" && pwd)
mips=$(cd "${2:?MIPS build dir}" && pwd)

echo "# Performance report"
echo
echo "$(date -u '+%Y-%m-%d %H:%M UTC'), $(uname -m), $(nproc) cores," \
     "$(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -1)," \
     "load average $(cut -d' ' -f1-3 /proc/loadavg); $(java -version 2>&1 | head -1)"
echo

echo "## 1. Every native against its floor (real JVM, thread CPU time, medians)"
echo
"$here/run-jvm-bench.sh" "$bench"
echo

echo "## 2. LAN host queries, whole call in a real JVM"
echo
BRELO_SIM_LOG=off BRELO_SIM_SAVE= LD_PRELOAD="$bench/lib/libgatewayhost.so" \
  java -Djava.library.path="$bench/lib" -cp "$bench/java/classes" bundlesc.bench.LanHostsBench
echo

echo "## 3. Heavy natives, instructions per call (callgrind)"
echo
echo '```'
"$here/run-callgrind-heavy.sh" "$bench"
echo '```'
echo

echo "## 4. The simulator's share of each native's instructions (callgrind, warm)"
echo
echo '```'
"$here/sim_share.sh" "$bench" --warm
echo '```'
echo

echo "## 5. The library as shipped on flash (MIPS, stripped)"
echo
cmake --build "$mips" --target bundle_sc >/dev/null
echo '```'
cat "$mips/library-size.txt"
echo '```'
