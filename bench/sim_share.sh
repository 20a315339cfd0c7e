#!/usr/bin/env bash
# The simulator's share of every native's cost, under callgrind: sim_share_driver calls each
# native of the catalogue once on the default simulated gateway with the call log off, and
# callgrind dumps one profile per native. Per native: the inclusive instructions, the
# instructions spent in the simulator (every call from the bridge or the driver into
# libbrelo.so.1, libtcapi.so.1, libgatewaysim.so or libgatewayhost.so, inclusive: the platform
# functions, the address checks, the simulator's internals and the C/C++ library work they
# do), and the share. The driver hides the trace flag
# (/tmp/brelo_debug) from the natives: other test runs may create it at any moment.
#   bench/sim_share.sh [build-dir] [--warm] [--all]
#     build-dir  a build configured with -DBUNDLE_BENCH=ON (default /tmp/build-bench)
#     --warm     each native is called once, unmeasured, just before its measured call
#     --all      print every native, not only the ten with the highest share
set -euo pipefail
build=/tmp/build-bench
warm=""
all=0
for a in "$@"; do
  case "$a" in
    --warm) warm=--warm ;;
    --all) all=1 ;;
    *) build=$a ;;
  esac
done
driver="$build/bin/sim_share_driver"
[ -x "$driver" ] || { echo "no $driver: configure with -DBUNDLE_BENCH=ON and build" >&2; exit 1; }
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
# Symbols bound at load time: the dynamic linker's lazy binding would otherwise land in the
# first call of each platform function.
export BRELO_SIM_LOG=off BRELO_SIM_SAVE= LD_BIND_NOW=1
"$driver" --choose >"$out/sets"
valgrind --tool=callgrind --callgrind-out-file="$out/cg.out" --collect-atstart=no \
  --toggle-collect=sim_share_measure --dump-after=sim_share_measure \
  "$driver" --measure "$out/sets" $warm >"$out/names" 2>"$out/valgrind.log" ||
  { cat "$out/valgrind.log" >&2; exit 1; }
python3 "$(dirname "$0")/sim_share.py" "$out/names" "$out"/cg.out.* --top $([ $all = 1 ] && echo 0 || echo 10)
