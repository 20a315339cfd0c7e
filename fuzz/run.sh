#!/bin/sh
# Builds the diagnostics parameter fuzzer (clang, libFuzzer, ASan + UBSan) and runs it for a
# bounded time.  Usage: fuzz/run.sh [seconds] (default 600) [build directory]
# New inputs go to a scratch corpus in the build directory; crashes land in fuzz/corpus/crash
# (commit them: every build replays them).
set -eu
seconds=${1:-600}
here=$(cd "$(dirname "$0")" && pwd)
root=$(dirname "$here")
build=${2:-/tmp/build-bundle-fuzz}

cmake -S "$root" -B "$build" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
      -DBUNDLE_FUZZ=ON -DBUNDLE_TIERS=OFF -DBUNDLE_JVM_TESTS=OFF -DBUILD_TESTING=OFF >/dev/null
cmake --build "$build" --target diag_params_fuzz -j2

work="$build/fuzz-corpus"
mkdir -p "$work"
cd "$build"
exec "$build/bin/diag_params_fuzz" -max_total_time="$seconds" -max_len=4096 -timeout=10 \
     -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$here/corpus/crash/" \
     -dict="$here/json.dict" "$work" "$here/corpus/seed"
