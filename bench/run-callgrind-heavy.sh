#!/usr/bin/env bash
# Instructions per call of the heavy natives under callgrind, each at a realistic or maximal
# size and at a quarter of it (heavy_natives_bench --cases lists them): the native's inclusive
# count, the simulated platform's share (every call the library makes into the simulated
# libbrelo, libtcapi and the host stand-ins, inclusive), the fake JVM's share (the JNI calls
# into the benchmark's own code), and the bridge's own share: inclusive minus the platform's,
# as run-callgrind.sh counts it (the fake JVM's share is inside it and shown apart).
#
# Every list query must stay linear in its input: the script exits non-zero when the own share
# of a case grows from the small to the large size by more than 1.25 times the input ratio.
# Trace output is off unless /tmp/brelo_debug exists; remove it before measuring.
#   bench/run-callgrind-heavy.sh [build-dir] [case...]   (a build configured with -DBUNDLE_BENCH=ON)
set -euo pipefail
build=${1:-/tmp/build-bench}
shift || true
bench="$build/bin/heavy_natives_bench"
[ -x "$bench" ] || { echo "no $bench: configure with -DBUNDLE_BENCH=ON and build" >&2; exit 1; }
[ -e /tmp/brelo_debug ] && echo "warning: /tmp/brelo_debug exists; the trace is counted" >&2
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
limit=${HEAVY_GROWTH_LIMIT:-1.25}  # allowed growth beyond the input ratio

# Reads one callgrind output file (names compressed or not) and prints
#   <total> <platform> <jvm>
# total: every instruction collected (callgrind collects the native alone, so this is its
# inclusive count); platform: the inclusive cost of every call from the bridge library into a
# simulator object; jvm: the same for calls from the bridge library into the executable.
shares() {
  awk -v exe="$(readlink -f "$bench")" '
    function name(kind, text,   id, rest) {
      # "(12) /path" defines id 12; "(12)" refers to it; a plain text names itself.
      if (match(text, /^\([0-9]+\)/)) {
        id = substr(text, 2, RLENGTH - 2)
        rest = substr(text, RLENGTH + 1)
        sub(/^ /, "", rest)
        if (rest != "") names[kind, id] = rest
        return names[kind, id]
      }
      return text
    }
    function kind_of(obj) {
      if (obj ~ /libbundle_sc\.so/) return "bridge"
      if (obj ~ /lib(brelo|tcapi|gatewaysim|gatewayhost)\.so/) return "platform"
      if (obj == exe) return "jvm"
      return "other"
    }
    /^ob=/  { ob = name("ob", substr($0, 4)); next }
    /^cob=/ { cob = name("ob", substr($0, 5)); next }
    /^calls=/ { incall = 1; next }
    /^(totals|summary):/ { total = $2; next }
    /^[0-9+*-]/ {
      if (incall) {
        callee = cob != "" ? cob : ob
        if (kind_of(ob) == "bridge") {
          k = kind_of(callee)
          if (k == "platform") platform += $2
          if (k == "jvm") jvm += $2
        }
        incall = 0
        cob = ""
      }
      next
    }
    END { printf "%.0f %.0f %.0f\n", total, platform, jvm }
  ' "$1"
}

printf '%-15s %6s %-12s %8s %14s %14s %12s %14s %10s %10s\n' case size unit "reply B" \
  "inclusive" "platform" "fake JVM" "own (bridge)" "own/unit" "own/byte"
status=0
while read -r name native small large unit; do
  if [ $# -gt 0 ] && [[ " $* " != *" $name "* ]]; then continue; fi
  declare -A own=()
  for size in "$small" "$large"; do
    cg="$out/cg.$name.$size"
    line=$(valgrind --tool=callgrind --callgrind-out-file="$cg" --toggle-collect="$native" \
             "$bench" --once "$name" "$size" 2>/dev/null </dev/null)
    bytes=$(sed -n 's/.*reply \([0-9]*\) bytes.*/\1/p' <<<"$line")
    read -r total platform jvm < <(shares "$cg")
    own[$size]=$(( total - platform ))
    per_byte="-"
    [ "${bytes:-0}" -gt 0 ] && per_byte=$(awk -v o="${own[$size]}" -v b="$bytes" 'BEGIN { printf "%.1f", o / b }')
    per_unit=$(awk -v o="${own[$size]}" -v n="$size" 'BEGIN { printf "%.0f", o / n }')
    printf '%-15s %6d %-12s %8d %14d %14d %12d %14d %10s %10s\n' "$name" "$size" "$unit" "${bytes:-0}" \
      "$total" "$platform" "$jvm" "${own[$size]}" "$per_unit" "$per_byte"
  done
  verdict=$(awk -v a="${own[$small]}" -v b="${own[$large]}" -v s="$small" -v l="$large" -v lim="$limit" '
    BEGIN {
      if (a <= 0 || b <= 0) { printf "FAIL no own share measured"; exit }
      grow = b / a; input = l / s
      printf "%s own share grows %.2fx for %.0fx the input (limit %.2fx)", (grow > lim * input ? "FAIL" : "ok"), grow, input, lim * input
    }')
  echo "  $name: $verdict"
  [[ $verdict == FAIL* ]] && status=1
  unset own
done < <("$bench" --cases)
exit $status
