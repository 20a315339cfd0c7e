#!/usr/bin/env bash
# The bridge's own cost per call in a real JVM against the floor of a conforming native
# (java/bench/bundlesc/bench/BridgeBench.java, bench/floor): prints a Markdown table, worst
# ratio first. A full run takes about a minute.
#
#   bench/run-jvm-bench.sh [build-dir] [BridgeBench options, e.g. --rounds 31 --only Wlan]
#
# With --platform prepared the natives' platform calls are answered from a record made before
# the timed loop (bench/prepared, preloaded here) instead of by the simulator.
#
# The build directory is a normal host build (the classes and libbundle_floor.so are built with
# the library); default: build-demo. The JVM is the one on PATH.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$here/build-demo}
[ $# -gt 0 ] && shift
build=$(cd "$build" && pwd)

preload="$build/lib/libbundle_floor.so:$build/lib/libgatewayhost.so"
prev=""
for a in "$@"; do
  if [ "$prev" = --platform ] && [ "$a" = prepared ]; then
    preload="$preload:$build/lib/libbundle_prepared.so"
  fi
  prev=$a
done

for f in lib/libbundle_sc.so lib/libbundle_floor.so lib/libbundle_prepared.so lib/libgatewayhost.so \
         lib/libgatewaysim_jni.so java/classes/bundlesc/bench/BridgeBench.class; do
  if [ ! -e "$build/$f" ]; then
    echo "$build/$f is missing: build the tree first (cmake --build $build)" >&2
    exit 2
  fi
done
# Every trace point would print and be timed.
if [ -e /tmp/brelo_debug ]; then
  echo "/tmp/brelo_debug exists: remove it before measuring" >&2
  exit 2
fi

# The simulated gateway with its call log off (read when the simulator loads) and nothing saved;
# libbundle_floor.so counts the flag-file checks (first: its access() must see every check
# before libgatewayhost.so's maps the path and asks the kernel itself), libgatewayhost.so keeps
# the route tool and resolver simulated, libbundle_prepared.so (with --platform prepared)
# answers the platform calls.
# What the natives themselves print (one prints its outcome on every call) goes to
# /dev/null; the table is written to a file of its own and printed at the end.
table=$(mktemp)
trap 'rm -f "$table"' EXIT
BRELO_SIM_LOG=off BRELO_SIM_SAVE= \
LD_PRELOAD="$preload" \
  java -Xms256m -Xmx256m -XX:+UseSerialGC -Djava.library.path="$build/lib" \
       -cp "$build/java/classes" bundlesc.bench.BridgeBench --out "$table" "$@" >/dev/null
cat "$table"
