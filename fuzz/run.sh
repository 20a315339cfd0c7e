#!/bin/sh
# Builds the fuzz targets and runs each for a bounded time, one after the other.
#   fuzz/run.sh [seconds per target] [target ...]
# Targets: java_inputs diag_params platform console (default: all of them); seconds default
# to 600. BUNDLE_FUZZ_BUILD names the build directory (default /tmp/build-bundle-fuzz).
# New inputs go to a scratch corpus in the build directory; an input that produced a finding
# lands in fuzz/corpus/<target>/crash (commit it: every build replays it). For each target the
# run ends with its executions, coverage and findings.
set -eu
seconds=${1:-600}
[ $# -gt 0 ] && shift
targets=${*:-java_inputs diag_params platform console}
here=$(cd "$(dirname "$0")" && pwd)
root=$(dirname "$here")
build=${BUNDLE_FUZZ_BUILD:-/tmp/build-bundle-fuzz}
summary=""

# A libFuzzer target: CMake target <name>_fuzz, corpus <corpus>/{seed,crash} (default
# fuzz/corpus/<name>), optional dictionary fuzz/<name>.dict.
run_libfuzzer() {
  name=$1
  corpus=${2:-$here/corpus/$name}
  cmake -S "$root" -B "$build" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
        -DBUNDLE_FUZZ=ON -DBUNDLE_TIERS=OFF -DBUNDLE_JVM_TESTS=OFF -DBUILD_TESTING=OFF >/dev/null
  cmake --build "$build" --target "${name}_fuzz" -j2
  work="$build/fuzz-corpus/$name"
  log="$build/fuzz-$name.log"
  mkdir -p "$work" "$corpus/crash"
  dict=""
  [ -f "$here/$name.dict" ] && dict="-dict=$here/$name.dict"
  before=$(ls "$corpus/crash" | wc -l)
  # Standard output closed: the natives' traces (when the trace flag file exists) stay out.
  # libFuzzer stops at the first finding.
  rc=0
  (cd "$build" && "$build/bin/${name}_fuzz" -max_total_time="$seconds" -max_len=4096 -timeout=10 \
      -rss_limit_mb=2048 -print_final_stats=1 -close_fd_mask=1 \
      -artifact_prefix="$corpus/crash/" $dict "$work" "$corpus/seed") 2>"$log" || rc=$?
  after=$(ls "$corpus/crash" | wc -l)
  last=$(grep -E '^#[0-9]+' "$log" | tail -1)
  execs=$(grep '^stat::number_of_executed_units' "$log" | awk '{print $2}')
  rate=$(grep '^stat::average_exec_per_sec' "$log" | awk '{print $2}')
  cov=$(echo "$last" | sed -n 's/.*cov: \([0-9]*\).*/\1/p')
  ft=$(echo "$last" | sed -n 's/.*ft: \([0-9]*\).*/\1/p')
  corp=$(echo "$last" | sed -n 's/.*corp: \([^ ]*\).*/\1/p')
  findings=$((after - before))
  line="$name: ${execs:-?} executions (${rate:-?}/s), edges ${cov:-?}, features ${ft:-?}, corpus ${corp:-?}, findings $findings, exit $rc (log $log)"
  echo "$line"
  summary="$summary$line
"
}

# The console's argument parser: bundlesc.fuzz.ConsoleFuzz (java/fuzz), coverage from JaCoCo.
run_console() {
  "$root/scripts/ensure-packages.sh" libjacoco-java openjdk-17-jdk-headless junit5 libgoogle-gson-java >/dev/null
  j=/usr/share/java
  out="$build/console-fuzz"
  rm -rf "$out" && mkdir -p "$out/classes" "$out/test-classes" "$out/fuzz-classes"
  javac --release 8 -encoding UTF-8 -nowarn -cp "$j/gson.jar" -d "$out/classes" \
        $(find "$root/java/services" "$root/java/console" -name '*.java')
  # The console's catalog: the classes the library exports natives for.
  grep -oE 'Java_[A-Za-z0-9_]+' "$root/common/libbundle_sc.map" \
    | sed -E 's/__.*//; s/^Java_//; s/_[^_]+$//; s/_/./g' | sort -u \
    >"$out/classes/bundlesc/console/service-classes.txt"
  javac --release 8 -encoding UTF-8 -nowarn \
        -cp "$out/classes:$j/gson.jar:$j/junit-jupiter-api.jar:$j/apiguardian-api.jar:$j/opentest4j.jar" \
        -d "$out/test-classes" "$root/java/tests/bundlesc/console/ConsoleArgumentsCorpusTest.java"
  javac --release 8 -encoding UTF-8 -nowarn -cp "$j/org.jacoco.core.jar" -d "$out/fuzz-classes" \
        $(find "$root/java/fuzz" -name '*.java')
  corpus="$here/corpus/console"
  log="$build/fuzz-console.log"
  mkdir -p "$build/fuzz-corpus/console" "$corpus/crash"
  cp="$out/fuzz-classes:$out/classes:$j/gson.jar:$j/org.jacoco.core.jar:$j/asm.jar:$j/asm-commons.jar:$j/asm-tree.jar"
  cp="$cp:$j/junit-jupiter-api.jar:$j/apiguardian-api.jar:$j/opentest4j.jar"
  # No library on java.library.path: if parsing ever initialised a service class, loading the
  # library would fail and the error would be a finding.
  rc=0
  java -Djava.library.path=/nonexistent -cp "$cp" bundlesc.fuzz.ConsoleFuzz "$seconds" \
       "$out/classes" "$out/test-classes" "$build/fuzz-corpus/console" "$corpus/crash" \
       "$corpus/seed" >"$log" 2>&1 || rc=$?
  tail -n 3 "$log"
  line="console: $(grep -E 'DONE|FINDING' "$log" | tail -1 | sed 's/^console: //'); $(grep 'branches' "$log" | sed 's/^console: //'), exit $rc (log $log)"
  echo "$line"
  summary="$summary$line
"
}

for target in $targets; do
  case $target in
    java_inputs|diag_params) run_libfuzzer "$target" ;;
    # The platform-side target: everything the platform hands back (tests/raw_platform).
    platform) run_libfuzzer platform ;;
    console) run_console ;;
    *) echo "unknown target $target (java_inputs diag_params platform console)" >&2; exit 2 ;;
  esac
done
echo
echo "Summary ($seconds s per target):"
printf '%s' "$summary"
