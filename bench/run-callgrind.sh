#!/usr/bin/env bash
# Instructions per call of the LAN host class query and MAC query under callgrind, for 16, 64
# and 256 hosts: the natives' inclusive counts minus the simulated platform call each makes
# (the benchmark's setup excluded). Trace output is off unless /tmp/brelo_debug exists.
#   bench/run-callgrind.sh [build-dir]   (a build configured with -DBUNDLE_BENCH=ON)
set -euo pipefail
build=${1:-/tmp/build-bench}
bench="$build/bin/lan_host_bench"
[ -x "$bench" ] || { echo "no $bench: configure with -DBUNDLE_BENCH=ON and build" >&2; exit 1; }
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
native=Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_
printf '%-6s %20s %20s\n' hosts "class instr/call" "MAC instr/call"
declare -A class_ir
for n in 16 64 256; do
  valgrind --tool=callgrind --callgrind-out-file="$out/cg.$n" \
    --toggle-collect="${native}getLANHostInfoByClassJni" \
    --toggle-collect="${native}getLANHostInfoByMACJni" "$bench" --once "$n" >/dev/null 2>&1
  report=$(callgrind_annotate --inclusive=yes --threshold=100 "$out/cg.$n" 2>/dev/null)
  ir() { grep -m1 "$1" <<<"$report" | awk '{gsub(",","",$1); print $1}'; }
  # The natives' own instructions: inclusive counts minus the simulated platform call inside.
  c=$(( $(ir "${native}getLANHostInfoByClassJni") - $(ir "brelo_lanGethostInfobytype") ))
  m=$(( $(ir "${native}getLANHostInfoByMACJni") - $(ir "brelo_lanGethostInfoByMACArr") ))
  class_ir[$n]=$c
  printf '%-6s %20s %20s\n' "$n" "$c" "$m"
done
awk -v a="${class_ir[64]}" -v b="${class_ir[256]}" \
  'BEGIN { printf "class query growth 64 -> 256 hosts: %.2fx instructions\n", b / a }'
