#!/bin/sh
# Builds the fuzz targets and runs each for a bounded time, one after the other, at low
# priority (nice 10).
#   fuzz/run.sh [seconds per target] [target ...]
# Targets: java_inputs tree_values state_file diag_params platform console (default: all of
# them); seconds default to 600. BUNDLE_FUZZ_BUILD names the build directory (default
# build-fuzz in the source tree).
# New inputs go to a scratch corpus in the build directory; an input that produced a finding
# lands in fuzz/corpus/<target>/crash (commit it: every build replays it). Each target's
# executions, executions per second (of wall time and of the CPU time the fuzzer got),
# coverage and findings are printed at the end and written into docs/generated/fuzz.md, whose
# rows of the targets not run this time are kept.
set -eu
seconds=${1:-600}
[ $# -gt 0 ] && shift
all="java_inputs tree_values state_file diag_params platform console"
targets=${*:-$all}
here=$(cd "$(dirname "$0")" && pwd)
root=$(dirname "$here")
build=${BUNDLE_FUZZ_BUILD:-$root/build-fuzz}
page="$root/docs/generated/fuzz.md"
rows=$(mktemp)
trap 'rm -f "$rows"' EXIT
today=$(date -u '+%Y-%m-%d')
commit=$(git -C "$root" rev-parse --short HEAD 2>/dev/null || echo unknown)
summary=""

for target in $targets; do
  case " $all " in
    *" $target "*) ;;
    *) echo "unknown target $target ($all)" >&2; exit 2 ;;
  esac
done

# User + system CPU seconds of the children that ended so far (the fuzzers run as children).
children_cpu() {
  awk '{ print $14 + $15 + $16 + $17 }' /proc/$$/stat 2>/dev/null || echo 0
}
ticks=$(getconf CLK_TCK)

# One row of the page: target, then the figures.
add_row() {
  echo "| $1 | $today | $commit | $seconds s | $2 | $3 | $4 | $5 | $6 | $7 |" >>"$rows"
}

# A libFuzzer target: CMake target <name>_fuzz, corpus fuzz/corpus/<name>/{seed,crash},
# optional dictionary fuzz/<name>.dict; inputs up to <max_len> bytes.
run_libfuzzer() {
  name=$1
  max_len=$2
  corpus=$here/corpus/$name
  cmake -S "$root" -B "$build" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
        -DBUNDLE_FUZZ=ON -DBUNDLE_TIERS=OFF -DBUNDLE_JVM_TESTS=OFF -DBUILD_TESTING=OFF >/dev/null
  nice -n 10 cmake --build "$build" --target "${name}_fuzz" -j2
  work="$build/fuzz-corpus/$name"
  log="$build/fuzz-$name.log"
  mkdir -p "$work" "$corpus/crash"
  dict=""
  [ -f "$here/$name.dict" ] && dict="-dict=$here/$name.dict"
  before=$(ls "$corpus/crash" | wc -l)
  cpu_before=$(children_cpu)
  # Standard output closed: the natives' traces (when the trace flag file exists) stay out.
  # The simulator's call log off: no harness reads it (hooks see their call's arguments).
  # Inputs are weighted by how quickly they run (-entropic_scale_per_exec_time): the seeds at
  # the size bounds stay in the corpus but take a small share of the executions.
  # libFuzzer stops at the first finding.
  rc=0
  (cd "$build" && BRELO_SIM_LOG=off nice -n 10 "$build/bin/${name}_fuzz" \
      -max_total_time="$seconds" -max_len="$max_len" -timeout=10 -rss_limit_mb=2048 \
      -entropic_scale_per_exec_time=1 -print_final_stats=1 -close_fd_mask=1 \
      -artifact_prefix="$corpus/crash/" $dict "$work" "$corpus/seed") 2>"$log" || rc=$?
  cpu=$(( ($(children_cpu) - cpu_before) / ticks ))
  after=$(ls "$corpus/crash" | wc -l)
  last=$(grep -E '^#[0-9]+' "$log" | tail -1)
  execs=$(grep '^stat::number_of_executed_units' "$log" | awk '{print $2}')
  rate=$(grep '^stat::average_exec_per_sec' "$log" | awk '{print $2}')
  cov=$(echo "$last" | sed -n 's/.*cov: \([0-9]*\).*/\1/p')
  ft=$(echo "$last" | sed -n 's/.*ft: \([0-9]*\).*/\1/p')
  corp=$(echo "$last" | sed -n 's/.*corp: \([^ ]*\).*/\1/p')
  per_cpu="?"
  [ "$cpu" -gt 0 ] && [ -n "$execs" ] && per_cpu=$((execs / cpu))
  findings=$((after - before))
  line="$name: ${execs:-?} executions (${rate:-?}/s; $per_cpu per CPU second, $cpu CPU s), edges ${cov:-?}, features ${ft:-?}, corpus ${corp:-?}, findings $findings, exit $rc (log $log)"
  echo "$line"
  summary="$summary$line
"
  add_row "$name" "${execs:-?}" "${rate:-?}" "$per_cpu" "${cov:-?} edges, ${ft:-?} features" \
          "${corp:-?}" "$findings"
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
  before=$(ls "$corpus/crash" | wc -l)
  cpu_before=$(children_cpu)
  # No library on java.library.path: if parsing ever initialised a service class, loading the
  # library would fail and the error would be a finding.
  rc=0
  nice -n 10 java -Djava.library.path=/nonexistent -cp "$cp" bundlesc.fuzz.ConsoleFuzz "$seconds" \
       "$out/classes" "$out/test-classes" "$build/fuzz-corpus/console" "$corpus/crash" \
       "$corpus/seed" >"$log" 2>&1 || rc=$?
  cpu=$(( ($(children_cpu) - cpu_before) / ticks ))
  after=$(ls "$corpus/crash" | wc -l)
  tail -n 3 "$log"
  done_line=$(grep -E 'DONE|FINDING' "$log" | tail -1 | sed 's/^console: //')
  branches=$(grep 'branches' "$log" | sed 's/^console: //')
  line="console: $done_line; $branches, $cpu CPU s, exit $rc (log $log)"
  echo "$line"
  summary="$summary$line
"
  execs=$(echo "$done_line" | sed -n 's/.*executions \([0-9]*\).*/\1/p')
  rate=$(echo "$done_line" | sed -n 's/.*(\([0-9]*\)\/s).*/\1/p')
  corp=$(echo "$done_line" | sed -n 's/.*corpus \([0-9]*\).*/\1/p')
  probes=$(echo "$done_line" | sed -n 's/.*probes \([0-9/]*\).*/\1/p')
  br=$(echo "$branches" | sed -n 's/.*branches \([0-9/]*\).*/\1/p')
  per_cpu="?"
  [ "$cpu" -gt 0 ] && [ -n "$execs" ] && per_cpu=$((execs / cpu))
  add_row console "${execs:-?}" "${rate:-?}" "$per_cpu" \
          "${probes:-?} JaCoCo probes, ${br:-?} branches" "${corp:-?} inputs" "$((after - before))"
}

for target in $targets; do
  case $target in
    java_inputs|tree_values|diag_params) run_libfuzzer "$target" 4096 ;;
    # A state file holds lines far longer than the other targets' inputs.
    state_file) run_libfuzzer "$target" 8192 ;;
    # The platform-side target: everything the platform hands back (tests/raw_platform).
    platform) run_libfuzzer platform 4096 ;;
    console) run_console ;;
  esac
done
echo
echo "Summary ($seconds s per target):"
printf '%s' "$summary"

# The page: this run's rows, then the rows of the other targets from the page as it was.
mkdir -p "$(dirname "$page")"
kept=$(mktemp)
trap 'rm -f "$rows" "$kept"' EXIT
if [ -f "$page" ]; then
  for target in $all; do
    case " $targets " in
      *" $target "*) ;;
      *) grep "^| $target |" "$page" >>"$kept" || true ;;
    esac
  done
fi
{
  "$root/scripts/generated-header.sh" fuzz/run.sh
  echo
  echo "# Fuzzing runs"
  echo
  echo "The last run of each target by \`fuzz/run.sh\` (fuzz/README.md describes the targets)."
  echo "Each row gives the run's date and commit and how long the target ran; executions per"
  echo "second are over the wall time and over the CPU time the fuzzer got (the machine may be"
  echo "shared); coverage is libFuzzer's edges and features, or the console's JaCoCo probes and"
  echo "branches; findings are the inputs the run added to \`fuzz/corpus/<target>/crash/\`."
  echo
  echo "| Target | Date | Commit | Time | Executions | exec/s | exec per CPU second | Coverage | Corpus | Findings |"
  echo "|---|---|---|---|---|---|---|---|---|---|"
  for target in $all; do
    grep "^| $target |" "$rows" "$kept" 2>/dev/null | sed 's/^[^|]*:|/|/' | head -n 1 || true
  done
} >"$page.tmp"
mv "$page.tmp" "$page"
echo "written: $page"
