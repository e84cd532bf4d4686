#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing (Debian packages), builds, then tests or runs.
#   tools/dev.sh test            build and run every test
#   tools/dev.sh run [ARGS...]   build and start Lumidesk (e.g. --model maple)
#   tools/dev.sh package         build the Debian package build/lumidesk_*.deb
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
build=${LUMIDESK_BUILD_DIR:-$root/build}
action=${1:-test}
[ $# -gt 0 ] && shift

packages="cmake ninja-build g++ pkg-config qt6-base-dev qt6-tools-dev qt6-tools-dev-tools
  qt6-l10n-tools libgl-dev libudev-dev libgcrypt20-dev libbenchmark-dev xvfb xauth
  dpkg-dev file desktop-file-utils appstream ola libola-dev"

missing=""
for p in $packages; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "ok installed" || missing="$missing $p"
done
if [ -n "$missing" ]; then
  if [ "$(id -u)" -ne 0 ]; then
    echo "Missing Debian packages:$missing" >&2
    echo "Install them as root (apt-get install$missing) and run this again." >&2
    exit 1
  fi
  echo "Installing:$missing"
  apt-get update -q
  DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $missing
fi

jobs=${LUMIDESK_JOBS:-2}
if [ ! -f "$build/build.ninja" ]; then
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
fi
cmake --build "$build" -j "$jobs"

case "$action" in
  test)
    ctest --test-dir "$build" --output-on-failure -j "$jobs" ;;
  package)
    cmake --build "$build" --target package ;;
  run)
    if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
      echo "No display: DISPLAY and WAYLAND_DISPLAY are not set." >&2
      echo "Run Lumidesk from a desktop session, or under a virtual one: xvfb-run -s '-screen 0 1280x1024x24' $0 run $*" >&2
      exit 1
    fi
    exec "$build/bin/lumidesk" "$@" ;;
  *)
    echo "usage: $0 test | package | run [lumidesk options]" >&2
    exit 2 ;;
esac
