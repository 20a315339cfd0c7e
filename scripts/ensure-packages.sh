#!/usr/bin/env bash
# Installs the Debian 12 packages named on the command line that are not installed yet
# (apt-get update first). Needs root, as on the build machines.
set -euo pipefail
missing=()
for pkg in "$@"; do
  status=$(dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null || true)
  [[ "$status" == "install ok installed" ]] || missing+=("$pkg")
done
if ((${#missing[@]})); then
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -q
  apt-get install -y -q --no-install-recommends "${missing[@]}"
fi
