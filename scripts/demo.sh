#!/usr/bin/env bash
# The main job: builds libbundle_sc.so against the default simulated gateway and runs a short
# session of the bridge console in a real JVM, printing every reply; then the sample bundle
# (java/samples/lanhosts) runs inside Apache Felix with the bridge bundle, and its output and
# the port mapping it opened are printed.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
source "$here/scripts/packages.sh"
bash "$here/scripts/ensure-packages.sh" "${BUILD_PACKAGES[@]}"

build=${BUILD_DIR:-$here/build-demo}
cmake -S "$here" -B "$build" -DBUILD_TESTING=OFF -DBUNDLE_TIERS=OFF -DBUNDLE_JVM_TESTS=ON >/dev/null
cmake --build "$build" -j"$(nproc)" >/dev/null

echo "== libbundle_sc.so against the default simulated gateway (sim/gateway/*.ini)"
# libgatewayhost.so: the simulated gateway's route tool and resolver, never the machine's. The
# console saves the configuration tree in a folder of the session's own, which it prints
# (BRELO_SIM_SAVE=FILE, when set, keeps it from one run to the next), never in the build.
LD_PRELOAD="$build/lib/libgatewayhost.so" \
  java -Xcheck:jni -Djava.library.path="$build/lib" -cp "$build/java/classes:/usr/share/java/gson.jar" \
  bundlesc.console.BridgeConsole --batch "$here/scripts/demo.batch"

echo
echo "== The sample bundle inside Apache Felix (the bridge bundle against the simulated gateway)"
bash "$here/scripts/gateway-box.sh" --no-build --build-dir "$build" --run "install file:$build/osgi/samples/lanhosts.jar
start 9
bridge:call PortMappingQueryService getPortMappingInfoJni"
echo
echo "== The gateway in a box, interactive (Gogo shell: bridge:call, bridge:list, sim:*):"
echo "   scripts/gateway-box.sh"
