#!/usr/bin/env bash
# Every performance figure the documents refer to, measured in one run and written to
# docs/generated/performance.md (its first line says when, on what machine and at which
# commit; scripts/generated-header.sh):
#   1. the JVM benchmark on the prepared platform: every native against its floor, the
#      platform's answers precomputed (bench/run-jvm-bench.sh --platform prepared), and the
#      natives above 1.2 times their floor with their reason (bench/prepared-exceptions.tsv);
#   2. the same benchmark against the simulated gateway (its lock and lookups counted);
#   3. the LAN host queries with 16, 64 and 256 hosts in a real JVM (LanHostsBench);
#   4. the instruction counts of the heavy natives at two sizes, with the linearity check
#      (bench/run-callgrind-heavy.sh);
#   5. the simulator's share of every native's instructions (bench/sim_share.sh --warm);
#   6. the stripped library of the flash configuration for MIPS against its budget (the MIPS
#      build's library-size.txt; the library is built first if it is not).
#
#   bench/performance-report.sh <bench-build-dir> <mips-build-dir> [page]
# The bench build: cmake -S . -B <dir> -DBUNDLE_BENCH=ON -DBUNDLE_TIERS=OFF (JVM classes on).
# The MIPS build: cmake -S . -B <dir> -DCMAKE_TOOLCHAIN_FILE=cmake/mips-linux-gnu.cmake
#                 -DBUILD_TESTING=OFF -DBUNDLE_TIERS=OFF -DBUNDLE_JVM_TESTS=OFF
# page: default docs/generated/performance.md. JVM_BENCH_ROUNDS (default 11) sets the rounds
# of the two JVM benchmarks. Remove /tmp/brelo_debug first; the machine should be otherwise
# idle (the benchmarks run at nice 10 on a shared one all the same).
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/.." && pwd)
bench=$(cd "${1:?bench build dir}" && pwd)
mips=$(cd "${2:?MIPS build dir}" && pwd)
page=${3:-$root/docs/generated/performance.md}
rounds=${JVM_BENCH_ROUNDS:-11}
exceptions="$here/prepared-exceptions.tsv"
goal=1.2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The prepared table's rows above the goal, each with its recorded reason; a row without one
# says so (it is a cost to remove, not an exception).
list_exceptions() {
  awk -F'\t' -v goal="$goal" '
    FNR == NR { if ($0 !~ /^#/ && NF >= 2) reason[$1] = $2; next }
    /^\| [0-9]+ \|/ {
      split($0, c, /[[:space:]]*\|[[:space:]]*/)
      native = c[3]; ratio = c[11] + 0
      total++
      if (ratio <= goal) { within++; next }
      why = (native in reason) ? reason[native] : "no reason recorded: a cost to remove"
      rows = rows sprintf("| %s | %.2f | %s |\n", native, ratio, why)
    }
    END {
      printf "%d of %d natives within %.1f times their floor.\n\n", within, total, goal
      if (rows == "") { print "No exceptions."; exit }
      print "| native | ratio | why |"
      print "|---|---:|---|"
      printf "%s", rows
    }' "$exceptions" "$1"
}

{
  "$root/scripts/generated-header.sh" bench/performance-report.sh
  echo
  echo "# Performance report"
  echo
  echo "Load average at the start $(cut -d' ' -f1-3 /proc/loadavg); $(java -version 2>&1 | head -1)."
  echo

  echo "## 1. Every native against its floor on the prepared platform"
  echo
  echo "Real JVM, thread CPU time, medians of $rounds paired rounds; the platform's answers"
  echo "recorded from the simulator before the timed loop and written back during it."
  echo
  nice -n 10 "$here/run-jvm-bench.sh" "$bench" --platform prepared --rounds "$rounds" \
    | tee "$work/prepared.md"
  echo
  echo "### Natives above $goal times their floor"
  echo
  list_exceptions "$work/prepared.md"
  echo

  echo "## 2. Every native against its floor on the simulated gateway"
  echo
  echo "The same benchmark with the simulator answering: its lock, lookups and copies count."
  echo
  nice -n 10 "$here/run-jvm-bench.sh" "$bench" --rounds "$rounds"
  echo

  echo "## 3. LAN host queries, whole call in a real JVM"
  echo
  BRELO_SIM_LOG=off BRELO_SIM_SAVE= LD_PRELOAD="$bench/lib/libgatewayhost.so" \
    nice -n 10 java -Djava.library.path="$bench/lib" -cp "$bench/java/classes" \
    bundlesc.bench.LanHostsBench
  echo

  echo "## 4. Heavy natives, instructions per call (callgrind)"
  echo
  echo '```'
  nice -n 10 "$here/run-callgrind-heavy.sh" "$bench"
  echo '```'
  echo

  echo "## 5. The simulator's share of each native's instructions (callgrind, warm)"
  echo
  echo '```'
  nice -n 10 "$here/sim_share.sh" "$bench" --warm
  echo '```'
  echo

  echo "## 6. The library as shipped on flash (MIPS, stripped)"
  echo
  nice -n 10 cmake --build "$mips" --target bundle_sc >/dev/null
  echo '```'
  cat "$mips/library-size.txt"
  echo '```'
} > "$work/page.md"
mkdir -p "$(dirname "$page")"
mv "$work/page.md" "$page"
echo "written: $page"
