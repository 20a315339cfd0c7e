#!/usr/bin/env bash
# The gateway in a box: Apache Felix with its Gogo shell, the bridge bundle, the simulator
# bundle, the console bundle (bridge:* and sim:* commands) and the default simulated gateway.
#
#   scripts/gateway-box.sh                       build, then an interactive shell (g!)
#   scripts/gateway-box.sh --run "CMD; CMD"      run shell commands, print their output, exit
#   scripts/gateway-box.sh --script FILE|-       run a file of shell commands (- : standard input)
# Options: --build-dir DIR (default build-demo, or $BUILD_DIR), --no-build (use DIR as built),
# --state FOLDER (the gateway: a state folder such as a bundle_sc-capture capture).
# Every start has a fresh framework cache and a fresh default gateway (sim/gateway/*.ini); the
# JVM runs under -Xcheck:jni. A script runs one line after the other; a line the shell cannot
# run ends it at once (exit status 1). file: paths are relative to where the box was started.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build-demo}
do_build=1
script=""
commands=""
state=""
while (($#)); do
  case "$1" in
    --build-dir) build=$2; shift 2 ;;
    --no-build) do_build=0; shift ;;
    --run) commands=$2; shift 2 ;;
    --script) script=$2; shift 2 ;;
    --state) state=$2; shift 2 ;;
    -h|--help) sed -n '2,12p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
    *) echo "gateway-box.sh: unknown argument $1 (--help shows the usage)" >&2; exit 2 ;;
  esac
done
# A relative build directory is taken from where the box is started.
build=$(realpath -m "$build")

if ((do_build)); then
  source "$here/scripts/packages.sh"
  bash "$here/scripts/ensure-packages.sh" "${BUILD_PACKAGES[@]}"
  cmake -S "$here" -B "$build" -DBUILD_TESTING=OFF -DBUNDLE_TIERS=OFF -DBUNDLE_JVM_TESTS=ON >/dev/null
  cmake --build "$build" -j"$(nproc)" >/dev/null
fi

[[ -d "$build" ]] || { echo "gateway-box.sh: no build directory $build" >&2; exit 2; }
osgi="$build/osgi"
launcher="$osgi/box/launcher.jar"
java_dir=/usr/share/java
# The Gogo command bundle (lb, install, start...) imports the bundle repository's API: that
# bundle is installed for it, not started (it would go looking for remote repositories).
installs=("$java_dir/org.apache.felix.bundlerepository.jar")
bundles=("$java_dir/org.apache.felix.gogo.runtime.jar"
         "$java_dir/org.apache.felix.gogo.command.jar" "$java_dir/gson.jar"
         "$osgi/com.lumarest.smartgateway.bridge.jar" "$osgi/bundlesc.sim.jar" "$osgi/bundlesc.console.jar")
# The shell starts at a later start level, once every command service is registered: its
# session (or script) would otherwise race the console bundle's bridge: and sim: commands.
shell_bundle="$java_dir/org.apache.felix.gogo.shell.jar"
for b in "${installs[@]}" "${bundles[@]}" "$shell_bundle" "$java_dir/org.apache.felix.main.jar" "$launcher" \
         "$build/lib/libgatewayhost.so"; do
  [[ -f "$b" ]] || { echo "gateway-box.sh: $b is missing (build first, without --no-build)" >&2; exit 2; }
done

if [[ -n "$state" ]]; then
  [[ -d "$state" ]] || { echo "gateway-box.sh: --state $state is not a folder" >&2; exit 2; }
  state=$(cd "$state" && pwd)
fi

box=$(mktemp -d "${TMPDIR:-/tmp}/gateway-box.XXXXXX")
trap 'rm -rf "$box"' EXIT
starts=""
for b in "${bundles[@]}"; do starts+=" file:$b"; done
scripted=0
[[ -n "$commands" || -n "$script" ]] && scripted=1
# Bundles are installed in the order of these lines (the launcher keeps it): the box's bundles
# are 1 to 8 and a bundle installed at the prompt is 9. The shell bundle also brings the
# shell's conversions (a bundle id to a bundle); its own profile would be read from gosh.home.
{
  echo "org.osgi.framework.storage=$box/cache"
  echo "org.osgi.framework.storage.clean=onFirstInit"
  echo "felix.auto.deploy.action="
  echo "felix.auto.start.1=$starts"
  echo "felix.auto.start.2=file:$shell_bundle"
  echo "felix.auto.install.1=file:${installs[0]}"
  echo "gosh.home=$box"
  echo "org.osgi.framework.startlevel.beginning=2"
  echo "felix.log.level=2"
  # The launcher knows no execution environment past Java 8 by name: the running VM offers
  # every Java SE level the bundles may ask for.
  echo "org.osgi.framework.system.capabilities.extra=osgi.ee; osgi.ee=\"JavaSE\"; version:List<Version>=\"1.0,1.1,1.2,1.3,1.4,1.5,1.6,1.7,1.8\""
} >"$box/config.properties"

launch=("$box/config.properties")
if ((scripted)); then
  # Non-interactive: the launcher runs the commands one a line, then stops the framework; the
  # first line that fails ends the script with its message.
  if [[ "$script" == "-" ]]; then
    cat >"$box/commands.gosh"
  elif [[ -n "$script" ]]; then
    cp "$script" "$box/commands.gosh"
  else
    printf '%s\n' "$commands" >"$box/commands.gosh"
  fi
  launch+=(--script "$box/commands.gosh")
  # The shell opens no session of its own: the launcher runs the script in one.
  echo "gosh.args=--nointeractive" >>"$box/config.properties"
else
  cat <<HINT
== The gateway in a box: Felix with the bridge bundle against the default simulated gateway.
   bridge:list [CLASS]                    the natives (all, or of one service class)
   bridge:call CLASS METHOD [ARG...]      e.g. bridge:call DeviceInfoQueryService getDeviceInfoJni
   sim:get SECTION... KEY, sim:set SECTION... KEY VALUE, sim:log, sim:result FUNCTION RC|clear
   help bridge:call, help sim:get, ...    what each command takes
   the sample bundle: install file:$osgi/samples/lanhosts.jar   then: start <its id>
   lb lists the bundles; stop 0 (or Ctrl-D) stops the framework.
HINT
fi

# The box runs in the directory it was started from: file: paths at the prompt are relative to
# it. The simulator's libraries from the build; its route tool and resolver stand in for the
# machine's (LD_PRELOAD), and tcapi_save writes into the box, never into the build.
export LD_LIBRARY_PATH="$build/lib${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}"
export LD_PRELOAD="$build/lib/libgatewayhost.so"
export BRELO_SIM_SAVE="$box/tcapi-saved.ini"
if [[ -n "$state" ]]; then
  export BRELO_SIM_STATE="$state"  # the gateway of --state instead of the default one
fi
# A command of a script that never returns is ended by a watchdog.
watchdog=()
status=0
if ((scripted)); then
  watchdog=(timeout --kill-after=5 "${BOX_SCRIPT_TIMEOUT:-60}")
fi
"${watchdog[@]}" java -Xcheck:jni \
  --add-opens java.base/java.net=ALL-UNNAMED --add-opens java.base/java.security=ALL-UNNAMED \
  -cp "$java_dir/org.apache.felix.main.jar:$launcher" bundlesc.box.BoxLauncher "${launch[@]}" || status=$?
if ((status == 124)); then
  echo "gateway-box.sh: the script did not reach its end within ${BOX_SCRIPT_TIMEOUT:-60} s" \
       "(a command that never returned?); the framework was stopped" >&2
fi
exit "$status"
