#!/usr/bin/env bash
# The main job: builds libbundle_sc.so against the default simulated gateway and runs a short
# session of the bridge console in a real JVM, printing every reply.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
source "$here/scripts/packages.sh"
bash "$here/scripts/ensure-packages.sh" "${BUILD_PACKAGES[@]}"

build=${BUILD_DIR:-$here/build-demo}
cmake -S "$here" -B "$build" -DBUILD_TESTING=OFF -DBUNDLE_TIERS=OFF -DBUNDLE_JVM_TESTS=ON >/dev/null
cmake --build "$build" -j"$(nproc)" >/dev/null

echo "== libbundle_sc.so against the default simulated gateway (sim/gateway/*.ini)"
# libgatewayhost.so: the simulated gateway's route tool and resolver, never the machine's.
BRELO_SIM_SAVE="$build/sim/tcapi-saved.ini" LD_PRELOAD="$build/lib/libgatewayhost.so" \
  java -Xcheck:jni -Djava.library.path="$build/lib" -cp "$build/java/classes:/usr/share/java/gson.jar" \
  bundlesc.console.BridgeConsole --batch "$here/scripts/demo.batch"
