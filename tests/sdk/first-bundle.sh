#!/usr/bin/env bash
# "Your first bundle" as the documentation writes it, in a scratch folder where build-demo is the
# build under test:
#   first-bundle.sh SOURCE BUILD first-bundle   the source file, the build lines (fewer than ten),
#                                               then the g! lines in the box, whose other lines
#                                               must appear in the box's output in that order
#   first-bundle.sh SOURCE BUILD java17         the same source built for Java 17: the check
#                                               fails and the box refuses the bundle
#   first-bundle.sh SOURCE BUILD newer-gson     a bundle using Gson API newer than 2.7: the
#                                               check and the box warn, the bundle runs
set -euo pipefail
source_dir=$1
build=$2
mode=$3
fail() { echo "first-bundle: $*" >&2; exit 1; }

docs=("$source_dir/README.md")
[[ -d "$source_dir/docs" ]] && docs+=("$source_dir"/docs/*.md)
doc=$(grep -l -E '^#+ Your first bundle' "${docs[@]}" || true)
[[ -n "$doc" && $(wc -l <<<"$doc") -eq 1 ]] || fail "one document must have the section 'Your first bundle' (found: ${doc:-none})"
section=$(awk '/^#+ Your first bundle/ { on = 1; next } on && /^#+ / { exit } on' "$doc")
# The first fenced block whose info string is $1 (empty: a plain block).
block() {
  awk -v lang="$1" '
    inside && /^```$/ { if (taking) exit; inside = 0; next }
    !inside && /^```/ { inside = 1; taking = (substr($0, 4) == lang); next }
    taking' <<<"$section"
}
java_source=$(block java)
build_lines=$(block sh)
box_lines=$(block "")
[[ -n "$java_source" && -n "$build_lines" && -n "$box_lines" ]] || fail "$doc: the section lacks a java, sh or plain block"
lines=$(grep -c . <<<"$build_lines")
((lines < 10)) || fail "$doc: the bundle is built in $lines lines, not fewer than ten"

work=$(mktemp -d "${TMPDIR:-/tmp}/first-bundle.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"
ln -s "$build" build-demo
source_path=$(head -1 <<<"$java_source" | sed -n 's#^// ##p')
[[ -n "$source_path" ]] || fail "$doc: the java block's first line names its file (// path)"
mkdir -p "$(dirname "$source_path")"
printf '%s\n' "$java_source" >"$source_path"
box() { bash "$source_dir/scripts/gateway-box.sh" --no-build --build-dir "$build" "$@" 2>&1; }

# Every line of $2 that is not a g! line must appear in $1 after the one before it.
expect_in_order() {
  local rest=$1 line
  while IFS= read -r line; do
    [[ "$line" == "g! "* || -z "$line" ]] && continue
    [[ "$rest" == *"$line"* ]] || fail "not in the output (after the lines before it): $line"
    rest=${rest#*"$line"}
  done <<<"$2"
}

case "$mode" in
  first-bundle)
    echo "== the build lines"
    printf '%s\n' "$build_lines"
    bash -euo pipefail -c "$build_lines"
    sed -n 's/^g! //p' <<<"$box_lines" >commands.gosh
    echo "== in the box"
    out=$(box --script commands.gosh) || fail "the box failed:"$'\n'"$out"
    printf '%s\n' "$out"
    expect_in_order "$out" "$box_lines"
    [[ "$out" != *"gateway-box: bundle"* ]] || fail "the box found something to say about the bundle"
    ;;
  java17)
    kit=build-demo/sdk
    javac --release 17 -cp "$($kit/bundle_sc-check-bundle --classpath)" -d hello17 "$source_path"
    jar cfm hello.jar $kit/MANIFEST.MF -C hello17 .
    status=0
    check=$($kit/bundle_sc-check-bundle hello.jar) || status=$?
    printf '%s\n' "$check"
    ((status == 1)) || fail "the check exited with $status, not 1"
    [[ "$check" == *"error: 1 class is Java 17 bytecode (class file version 61)"* ]] || fail "the check did not name the class version"
    printf 'install file:hello.jar\nstart 9\nlb\n' >commands.gosh
    out=$(box --script commands.gosh) || fail "the box failed:"$'\n'"$out"
    printf '%s\n' "$out"
    expect_in_order "$out" "Bundle ID: 9
gateway-box: bundle 9 (file:hello.jar): error: 1 class is Java 17 bytecode (class file version 61), e.g. com/example/hello/Activator.class: the gateway's Java 8 VM loads class file versions up to 52 only; compile with javac --release 8
gateway-box: bundle 9 (file:hello.jar) is refused, as the gateway's Java 8 would refuse it
    9|Installed  |"
    [[ "$out" != *"hello from"* ]] || fail "the refused bundle ran"
    ;;
  newer-gson)
    kit=build-demo/sdk
    mkdir -p newer/com/example/newer
    cat >newer/com/example/newer/Activator.java <<'EOF'
package com.example.newer;

import org.osgi.framework.BundleActivator;
import org.osgi.framework.BundleContext;

import com.google.gson.JsonParser;

public class Activator implements BundleActivator {
    public void start(BundleContext context) {
        System.out.println("keys: " + JsonParser.parseString("{\"a\":1,\"b\":2}").getAsJsonObject().keySet());
    }

    public void stop(BundleContext context) {
    }
}
EOF
    javac --release 8 -cp "$($kit/bundle_sc-check-bundle --classpath)" -d newer/classes newer/com/example/newer/Activator.java
    sed 's/com\.example\.hello/com.example.newer/' $kit/MANIFEST.MF >newer/MANIFEST.MF
    jar cfm newer.jar newer/MANIFEST.MF -C newer/classes .
    check=$($kit/bundle_sc-check-bundle newer.jar) || fail "the check failed: $check"
    printf '%s\n' "$check"
    expect_in_order "$check" "newer.jar: warning: com/example/newer/Activator.class uses com.google.gson.JsonObject.keySet (Gson 2.8.1), which the gateway's Gson 2.7.0 does not have
newer.jar: warning: com/example/newer/Activator.class uses com.google.gson.JsonParser.parseString (Gson 2.8.6), which the gateway's Gson 2.7.0 does not have
newer.jar: fits the gateway (1 class, class file version 52 at most; 2 warnings)"
    printf 'install file:newer.jar\nstart 9\n' >commands.gosh
    out=$(box --script commands.gosh) || fail "the box failed:"$'\n'"$out"
    printf '%s\n' "$out"
    expect_in_order "$out" "Bundle ID: 9
gateway-box: bundle 9 (file:newer.jar): warning: com/example/newer/Activator.class uses com.google.gson.JsonObject.keySet (Gson 2.8.1)
gateway-box: bundle 9 (file:newer.jar): warning: com/example/newer/Activator.class uses com.google.gson.JsonParser.parseString (Gson 2.8.6)
keys: [a, b]"
    ;;
  *) fail "unknown mode $mode" ;;
esac
echo "first-bundle: $mode passed"
