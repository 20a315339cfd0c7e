#!/usr/bin/env bash
# Long life: the resident memory and open descriptors of a JVM calling every native ten million
# times, against a control JVM doing the same Java work without the library
# (java/bench/bundlesc/bench/SoakBench.java says what is measured and the criterion). Writes
# docs/generated/soak.md and exits 1 when the natives do not pass. A full run takes about as
# long as ten million calls (minutes on a small machine), twice.
#
#   bench/soak.sh [build-dir] [--calls N] [--threads N] [--samples N]
#   bench/soak.sh [build-dir] --smoke    # a few thousand calls, nothing judged, no page written
#
# The build directory is a host build (default build-soak in the source tree); what the soak
# needs (the library, the simulator, the Java classes) is configured and built there when it
# is missing. The JVM is the one on PATH.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build-soak
if [ $# -gt 0 ] && [ "${1#--}" = "$1" ]; then
  build=$1
  shift
fi
smoke=0
options=()
for a in "$@"; do
  if [ "$a" = --smoke ]; then smoke=1; else options+=("$a"); fi
done
if [ $smoke = 1 ]; then
  options=(--calls 20000 --threads 2 --samples 10)
fi

needed=(lib/libbundle_sc.so lib/libgatewayhost.so lib/libgatewaysim_jni.so
        java/classes/bundlesc/bench/SoakBench.class)
missing=0
for f in "${needed[@]}"; do
  [ -e "$build/$f" ] || missing=1
done
if [ $missing = 1 ]; then
  [ -f "$build/CMakeCache.txt" ] || cmake -S "$root" -B "$build" -DBUNDLE_TIERS=OFF -DBUILD_TESTING=OFF >/dev/null
  cmake --build "$build" --target bundle_sc gatewayhost gatewaysim_jni java_classes -j2
fi
build=$(cd "$build" && pwd)
# Every trace point would print (and keep the JVM busy writing).
if [ $smoke = 0 ] && [ -e /tmp/brelo_debug ]; then
  echo "/tmp/brelo_debug exists: remove it before measuring" >&2
  exit 2
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Both JVMs: a fixed heap, touched from the start, so the Java heap's own pages do not show as
# growth; what the natives print goes to /dev/null.
jvm=(java -Xms64m -Xmx64m -XX:+AlwaysPreTouch -XX:+UseSerialGC -cp "$build/java/classes")
# The natives: the simulated gateway with its call log off and nothing saved; libgatewayhost.so
# keeps the route tool and resolver simulated.
BRELO_SIM_LOG=off BRELO_SIM_SAVE= LD_PRELOAD="$build/lib/libgatewayhost.so" \
  "${jvm[@]}" -Djava.library.path="$build/lib" bundlesc.bench.SoakBench "${options[@]}" \
  --replies "$work/replies.ser" --out "$work/natives.tsv" >/dev/null
# The control: no library of the project at all.
"${jvm[@]}" -Djava.library.path=/nonexistent bundlesc.bench.SoakBench --control "${options[@]}" \
  --replies "$work/replies.ser" --out "$work/control.tsv" >/dev/null

rc=0
if [ $smoke = 1 ]; then
  "${jvm[@]}" bundlesc.bench.SoakBench --report "$work/natives.tsv" "$work/control.tsv" --smoke \
    >"$work/page.md" || rc=$?
  head -n 12 "$work/page.md"
  exit $rc
fi
page=$root/docs/generated/soak.md
mkdir -p "$(dirname "$page")"
{
  "$root/scripts/generated-header.sh" bench/soak.sh
  echo
  "${jvm[@]}" bundlesc.bench.SoakBench --report "$work/natives.tsv" "$work/control.tsv" || rc=$?
} >"$page.tmp"
mv "$page.tmp" "$page"
sed -n '3,16p' "$page"
echo "written: $page"
exit $rc
