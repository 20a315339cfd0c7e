#!/usr/bin/env bash
# The share of the simulated gateway in the time of some natives, measured with perf: samples
# whose stack holds the native's own function, and among them those inside the simulator
# (libbrelo.so.1, libtcapi.so.1, libgatewaysim.so, libgatewayhost.so). Figures of the JVM
# benchmark stay the reference; this only says how much of a native's excess is the simulator's.
#
#   bench/jvm-sim-share.sh build-dir method...      e.g. bench/jvm-sim-share.sh /tmp/b getWANIfInfoJni
set -euo pipefail
build=$(cd "$1" && pwd)
shift
if [ -e /tmp/brelo_debug ]; then
  echo "/tmp/brelo_debug exists: remove it before measuring" >&2
  exit 2
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
printf '| native | samples in the native | in the simulator | simulator share |\n|---|---:|---:|---:|\n'
for method in "$@"; do
  BRELO_SIM_LOG=off BRELO_SIM_SAVE= \
  LD_PRELOAD="$build/lib/libbundle_floor.so:$build/lib/libgatewayhost.so" \
    perf record -q -o "$work/perf.data" -F 1000 --call-graph dwarf,16384 -- \
    java -XX:+UseSerialGC -Djava.library.path="$build/lib" -cp "$build/java/classes" \
         bundlesc.bench.BridgeBench --only "\\.$method\$" --rounds 10 --warmup-ms 200 \
         --out "$work/table.txt" >/dev/null 2>"$work/perf.err"
  perf script -i "$work/perf.data" -F ip,sym,dso 2>/dev/null | awk -v m="_$method" '
    function flush() { if (inside) { native++; if (sim) simulated++ } inside = 0; sim = 0; below = 1 }
    BEGIN { below = 1 }
    /^$/ { flush(); next }
    {
      # Frames run from the innermost outwards: every frame before the native is its callee.
      if (index($0, "Java_") && index($0, m " (")) { inside = 1 }
      else if (!inside && $0 ~ /libbrelo\.so|libtcapi\.so|libgatewaysim\.so|libgatewayhost\.so/) { sim = 1 }
    }
    END { flush(); printf "| %s | %d | %d | %.0f%% |\n", substr(m, 2), native, simulated,
                        native ? 100.0 * simulated / native : 0 }'
done
