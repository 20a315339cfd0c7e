#!/usr/bin/env bash
# Instructions of one traffic monitoring query on a full tree (8 groups x 1020 addresses)
# under callgrind: the native's inclusive count, and its own share without the simulated
# tcapi_get and strNull calls it makes (the benchmark's setup excluded). Trace output is off
# unless /tmp/brelo_debug exists.
#   bench/run-callgrind-traffic.sh [build-dir]   (a build configured with -DBUNDLE_BENCH=ON)
set -euo pipefail
build=${1:-/tmp/build-bench}
bench="$build/bin/traffic_monitoring_bench"
[ -x "$bench" ] || { echo "no $bench: configure with -DBUNDLE_BENCH=ON and build" >&2; exit 1; }
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
native=Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_getTrafficMonitoringDestAddressInfoJni
valgrind --tool=callgrind --callgrind-out-file="$out/cg" --toggle-collect="$native" "$bench" --once >/dev/null 2>&1
report=$(callgrind_annotate --inclusive=yes --threshold=100 --auto=no "$out/cg" 2>/dev/null)
# A function's inclusive count: callgrind_annotate lists it once per source file its code
# (inlined headers included) comes from; the largest of those lines is the whole function.
ir() { grep -E ":$1( \[|\$)" <<<"$report" | awk '{gsub(",","",$1); if ($1+0 > m) m = $1+0} END {print m+0}'; }
total=$(ir "$native")
tget=$(ir "tcapi_get")
snull=$(ir "strNull")
printf '%-28s %15s\n' "query (inclusive)" "$total"
printf '%-28s %15s\n' "  simulated tcapi_get" "$tget"
printf '%-28s %15s\n' "  simulated strNull" "$snull"
printf '%-28s %15s\n' "  own (bridge)" "$(( total - tget - snull ))"
